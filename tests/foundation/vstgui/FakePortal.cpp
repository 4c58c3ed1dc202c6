// A desktop's portal for the tests: owns its name on the session's bus, says on the standard output
// what it was asked for, and answers as its arguments say.
//
//   FakePortal answer CODE [URI...]   shows a dialog that ends with this response at once
//   FakePortal show                   shows a dialog that stays open
//   FakePortal leave                  shows a dialog and crashes
//   FakePortal refuse                 answers with an error
//   FakePortal hang                   never answers

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <systemd/sd-bus.h>

namespace {

constexpr const char* kPath = "/org/freedesktop/portal/desktop";

char** answer = nullptr; // the program's arguments

void check(int result, const char* what) {
    if (result >= 0)
        return;
    std::printf("%s: error %d\n", what, -result);
    std::fflush(stdout);
    std::exit(1);
}

/// As D-Bus types it: basic values in text, bytes as the text they are.
std::string valueText(sd_bus_message* m) {
    char type = 0;
    const char* contents = nullptr;
    check(sd_bus_message_peek_type(m, &type, &contents), "peek");
    if (type == 's') {
        const char* text = nullptr;
        check(sd_bus_message_read(m, "s", &text), "text");
        return text;
    }
    if (type == 'b' || type == 'u') {
        uint32_t number = 0;
        check(sd_bus_message_read_basic(m, type, &number), "number");
        return std::to_string(number);
    }
    if (type == 'a' && *contents == 'y') {
        const void* bytes = nullptr;
        std::size_t size = 0;
        check(sd_bus_message_read_array(m, 'y', &bytes, &size), "bytes");
        std::string text(static_cast<const char*>(bytes), size);
        return !text.empty() && text.back() == '\0' ? std::string(text.c_str()) : text + "(no end)";
    }
    const std::string inner = contents;
    check(sd_bus_message_enter_container(m, type, inner.c_str()), "enter");
    std::string text;
    while (sd_bus_message_at_end(m, 0) == 0)
        text += (text.empty() ? "" : " ") + valueText(m);
    check(sd_bus_message_exit_container(m), "exit");
    return type == 'r' || type == 'a' ? "(" + text + ")" : text;
}

int onClose(sd_bus_message* m, void*, sd_bus_error*) {
    std::printf("Close %s\n", sd_bus_message_get_path(m));
    std::fflush(stdout);
    return sd_bus_reply_method_return(m, "");
}

void respond(sd_bus* bus, const std::string& handle) {
    sd_bus_message* signal = nullptr;
    check(sd_bus_message_new_signal(bus, &signal, handle.c_str(), "org.freedesktop.portal.Request",
                                    "Response"),
          "signal");
    check(sd_bus_message_append(signal, "u", static_cast<uint32_t>(std::atoi(answer[2]))), "code");
    check(sd_bus_message_open_container(signal, 'a', "{sv}"), "results");
    check(sd_bus_message_append(signal, "{sv}", "choices", "a(ss)", 1, "a", "b"), "choices");
    check(sd_bus_message_open_container(signal, 'e', "sv"), "entry");
    check(sd_bus_message_append(signal, "s", "uris"), "key");
    check(sd_bus_message_open_container(signal, 'v', "as"), "variant");
    check(sd_bus_message_append_strv(signal, answer + 3), "uris");
    for (int level = 0; level < 3; ++level)
        check(sd_bus_message_close_container(signal), "close");
    check(sd_bus_send(bus, signal, nullptr), "send");
    sd_bus_message_unref(signal);
}

int onCall(sd_bus_message* m, void*, sd_bus_error*) {
    const std::string way = answer[1];
    sd_bus* const bus = sd_bus_message_get_bus(m);
    std::string sender = sd_bus_message_get_sender(m) + 1;
    for (char& c : sender)
        c = c == '.' ? '_' : c;
    std::string call = sd_bus_message_get_member(m);
    const std::string parent = valueText(m), title = valueText(m), options = valueText(m);
    std::printf("%s %s|%s|%s\n", call.c_str(), parent.c_str(), title.c_str(), options.c_str());
    std::fflush(stdout);
    if (way == "hang")
        return 1;
    if (way == "refuse")
        return sd_bus_reply_method_errorf(m, "org.freedesktop.portal.Error.Failed", "no");
    const std::string handle = std::string(kPath) + "/request/" + sender + "/dialog";
    check(sd_bus_reply_method_return(m, "o", handle.c_str()), "reply");
    if (way == "answer")
        respond(bus, handle);
    if (way == "leave") {
        sd_bus_flush(bus);
        std::exit(1);
    }
    return 1;
}

const sd_bus_vtable kChooser[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("OpenFile", "ssa{sv}", "o", onCall, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("SaveFile", "ssa{sv}", "o", onCall, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

int always(sd_bus*, const char*, const char*, void*, void** found, sd_bus_error*) {
    *found = nullptr;
    return 1;
}

const sd_bus_vtable kRequest[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Close", "", "", onClose, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

} // namespace

int main(int, char** arguments) {
    answer = arguments;
    sd_bus* bus = nullptr;
    check(sd_bus_open_user(&bus), "open");
    check(sd_bus_add_object_vtable(bus, nullptr, kPath, "org.freedesktop.portal.FileChooser",
                                   kChooser, nullptr),
          "chooser");
    check(sd_bus_add_fallback_vtable(bus, nullptr, "/org/freedesktop/portal/desktop/request",
                                     "org.freedesktop.portal.Request", kRequest, always, nullptr),
          "requests");
    check(sd_bus_request_name(bus, "org.freedesktop.portal.Desktop", 0), "name");
    std::printf("ready\n");
    std::fflush(stdout);
    while (sd_bus_process(bus, nullptr) >= 0)
        sd_bus_wait(bus, UINT64_MAX);
}
