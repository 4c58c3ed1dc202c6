#include "vstgui/lib/platform/linux/portalfiledialog.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string_view>

#include "vstgui/lib/platform/common/textline.h"
#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/filedialogs.h"
#include "vstgui/lib/platform/linux/sdbus.h"

namespace VSTGUI {

namespace {

using Kind = FileDialogRequest::Kind;

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* kChooserInterface = "org.freedesktop.portal.FileChooser";
constexpr const char* kRequestInterface = "org.freedesktop.portal.Request";
/// Ours among the connection's requests, of which there is one.
constexpr const char* kHandleToken = "dialog";

/// A bus on this machine answers within milliseconds.
constexpr uint64_t kConnectLimitMs = 1500;
/// The portal may have to be started first, and its parts.
constexpr uint64_t kCallLimitMs = 5000;
/// Taken at one look, so that a busy bus does not hold the host.
constexpr int kMessagesPerLook = 32;

/// How the user's answer begins, see the portal's `Response`.
enum Response : uint32_t { kChosen = 0, kCancelled = 1 };

struct CloseBus {
    const SdBus* sd;
    void operator()(sd_bus* bus) const { sd->sd_bus_close_unref(bus); }
};
using Bus = std::unique_ptr<sd_bus, CloseBus>;

struct UnrefMessage {
    const SdBus* sd;
    void operator()(sd_bus_message* message) const { sd->sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, UnrefMessage>;

/// Writes the options of a call. After a failure the message is of no use.
class OptionsWriter {
public:
    OptionsWriter(const SdBus& sd, sd_bus_message* message) : sd_(sd), message_(message) {
        check(sd_.sd_bus_message_open_container(message_, 'a', "{sv}"));
    }
    /// @return whether all went well
    bool finish() {
        check(sd_.sd_bus_message_close_container(message_));
        return !failed_;
    }

    void addText(const char* key, const std::string& text) {
        check(sd_.sd_bus_message_append(message_, "{sv}", key, "s", text.c_str()));
    }
    void addYes(const char* key) {
        check(sd_.sd_bus_message_append(message_, "{sv}", key, "b", 1));
    }
    /// As bytes with a zero at the end: a path need not be text.
    void addPath(const char* key, const std::string& path) {
        open('e', "sv", key, "ay");
        check(sd_.sd_bus_message_append_array(message_, 'y', path.c_str(), path.size() + 1));
        close(2);
    }
    void addTypes(const std::vector<FileDialogRequest::FileType>& types) {
        open('e', "sv", "filters", "a(sa(us))");
        check(sd_.sd_bus_message_open_container(message_, 'a', "(sa(us))"));
        for (const FileDialogRequest::FileType& type : types) {
            open('r', "sa(us)", oneLine(type.description).c_str(), nullptr);
            check(sd_.sd_bus_message_open_container(message_, 'a', "(us)"));
            for (const std::string& pattern : filePatterns(type))
                check(sd_.sd_bus_message_append(message_, "(us)", 0U, oneLine(pattern).c_str()));
            close(2);
        }
        close(3);
    }

private:
    void check(int result) { failed_ = failed_ || result < 0; }
    /// A container that begins with a text; in it, when `variant` is given, one of that type.
    void open(char type, const char* contents, const char* text, const char* variant) {
        check(sd_.sd_bus_message_open_container(message_, type, contents));
        check(sd_.sd_bus_message_append(message_, "s", text));
        if (variant)
            check(sd_.sd_bus_message_open_container(message_, 'v', variant));
    }
    void close(int containers) {
        for (; containers > 0; --containers)
            check(sd_.sd_bus_message_close_container(message_));
    }

    const SdBus& sd_;
    sd_bus_message* message_;
    bool failed_ = false;
};

class PortalFileDialog : public FileDialogBackend {
public:
    ~PortalFileDialog() override;
    bool start(const FileDialogRequest& request) override;
    State poll(std::vector<std::string>& paths) override;

private:
    enum class Stage { Connecting, Calling, Open, Ended, Failed };

    void receive();
    bool callPortal();
    bool writeCall(sd_bus_message* message) const;
    bool listenTo(const std::string& requestPath);
    void sendClose();

    template <void (PortalFileDialog::*handler)(sd_bus_message*)>
    static int handle(sd_bus_message* message, void* dialog, sd_bus_error* /*error*/) {
        (static_cast<PortalFileDialog*>(dialog)->*handler)(message);
        return 0;
    }
    void onReply(sd_bus_message* message);
    void onResponse(sd_bus_message* message);
    void onOwnerChanged(sd_bus_message* message);
    void onLost();
    void readUris(sd_bus_message* results);

    void enter(Stage stage) {
        stage_ = stage;
        stageBeganMs_ = currentTickMs();
    }
    uint64_t inStageMs() const { return currentTickMs() - stageBeganMs_; }

    std::unique_ptr<SdBus> sd_; // outlives what follows
    Bus bus_{nullptr, CloseBus{nullptr}};
    const FileDialogRequest* request_ = nullptr;
    Stage stage_ = Stage::Connecting;
    uint64_t stageBeganMs_ = 0;
    std::string requestPath_; // of the portal's object that stands for the open dialog
    std::vector<std::string> paths_;
};

bool PortalFileDialog::start(const FileDialogRequest& request) {
    request_ = &request;
    const std::string addresses = sessionBusAddresses();
    if (addresses.empty() || !(sd_ = SdBus::open()))
        return false;
    sd_bus* bus = nullptr;
    if (sd_->sd_bus_new(&bus) < 0)
        return false;
    bus_ = Bus(bus, CloseBus{sd_.get()});
    enter(Stage::Connecting);
    return sd_->sd_bus_set_address(bus, addresses.c_str()) >= 0 &&
           sd_->sd_bus_set_bus_client(bus, 1) >= 0 && sd_->sd_bus_start(bus) >= 0;
}

PortalFileDialog::~PortalFileDialog() {
    // The portal closes the dialogs of those who leave, too; the ones before 1.0 late.
    if (bus_ && (stage_ == Stage::Calling || stage_ == Stage::Open))
        sendClose();
}

FileDialogBackend::State PortalFileDialog::poll(std::vector<std::string>& paths) {
    receive();
    if (stage_ == Stage::Connecting && sd_->sd_bus_is_ready(bus_.get()) > 0)
        enter(callPortal() ? Stage::Calling : Stage::Failed);
    switch (stage_) {
    case Stage::Connecting:
        return inStageMs() > kConnectLimitMs ? State::Failed : State::Open;
    case Stage::Calling:
        return inStageMs() > kCallLimitMs ? State::Failed : State::Open;
    case Stage::Open:
        return State::Open;
    case Stage::Ended:
        paths = std::move(paths_);
        return State::Ended;
    case Stage::Failed:
        break;
    }
    return State::Failed;
}

void PortalFileDialog::receive() {
    for (int count = 0; count < kMessagesPerLook; ++count) {
        const int result = sd_->sd_bus_process(bus_.get(), nullptr);
        if (result < 0)
            onLost();
        if (result <= 0)
            return;
    }
}

// Asking

bool PortalFileDialog::callPortal() {
    const char* ownName = nullptr;
    if (sd_->sd_bus_get_unique_name(bus_.get(), &ownName) < 0)
        return false;
    std::string sender = ownName + 1; // without the colon
    std::replace(sender.begin(), sender.end(), '.', '_');
    const std::string ownerRule = "type='signal',sender='org.freedesktop.DBus',"
                                  "member='NameOwnerChanged',arg0='" +
                                  std::string(kPortal) + "'";
    // Told to the bus ahead of the call: the answer may come before the call has returned.
    if (!listenTo(std::string(kPortalPath) + "/request/" + sender + "/" + kHandleToken) ||
        sd_->sd_bus_add_match_async(bus_.get(), nullptr, ownerRule.c_str(),
                                    handle<&PortalFileDialog::onOwnerChanged>, nullptr, this) < 0)
        return false;

    sd_bus_message* message = nullptr;
    const char* method = request_->kind == Kind::SaveFile ? "SaveFile" : "OpenFile";
    if (sd_->sd_bus_message_new_method_call(bus_.get(), &message, kPortal, kPortalPath,
                                            kChooserInterface, method) < 0)
        return false;
    const Message held(message, UnrefMessage{sd_.get()});
    return writeCall(message) &&
           sd_->sd_bus_call_async(bus_.get(), nullptr, message, handle<&PortalFileDialog::onReply>,
                                  this, 0) >= 0;
}

bool PortalFileDialog::writeCall(sd_bus_message* message) const {
    char parent[32];
    std::snprintf(parent, sizeof parent, "x11:%zx", request_->window);
    if (sd_->sd_bus_message_append(message, "ss", parent, request_->title.c_str()) < 0)
        return false;
    OptionsWriter options(*sd_, message);
    options.addText("handle_token", kHandleToken);
    options.addYes("modal");
    if (request_->kind == Kind::OpenFiles)
        options.addYes("multiple");
    if (request_->kind == Kind::ChooseDirectory)
        options.addYes("directory");
    options.addPath("current_folder", request_->directory);
    if (request_->kind == Kind::SaveFile && !request_->saveName.empty()) {
        const std::string path = request_->directory + "/" + request_->saveName;
        struct stat status {};
        if (stat(path.c_str(), &status) == 0)
            options.addPath("current_file", path);
        if (oneLine(request_->saveName) == request_->saveName) // a text, unlike the path
            options.addText("current_name", request_->saveName);
    }
    if (request_->kind != Kind::ChooseDirectory && !request_->types.empty())
        options.addTypes(request_->types);
    return options.finish();
}

bool PortalFileDialog::listenTo(const std::string& requestPath) {
    requestPath_ = requestPath;
    const std::string rule = "type='signal',sender='" + std::string(kPortal) + "',path='" +
                             requestPath + "',interface='" + kRequestInterface +
                             "',member='Response'";
    return sd_->sd_bus_add_match_async(bus_.get(), nullptr, rule.c_str(),
                                       handle<&PortalFileDialog::onResponse>, nullptr, this) >= 0;
}

void PortalFileDialog::sendClose() {
    sd_bus_message* message = nullptr;
    if (sd_->sd_bus_message_new_method_call(bus_.get(), &message, kPortal, requestPath_.c_str(),
                                            kRequestInterface, "Close") < 0)
        return;
    const Message held(message, UnrefMessage{sd_.get()});
    sd_->sd_bus_send(bus_.get(), message, nullptr); // written at once where the socket takes it
}

// Being answered

void PortalFileDialog::onReply(sd_bus_message* message) {
    if (stage_ != Stage::Calling) // the answer was faster
        return;
    const char* path = nullptr;
    if (sd_->sd_bus_message_is_method_error(message, nullptr) != 0 ||
        sd_->sd_bus_message_read(message, "o", &path) < 0) {
        enter(Stage::Failed);
        return;
    }
    if (requestPath_ != path && !listenTo(path)) // portals before 0.9 choose the name themselves
        enter(Stage::Failed);
    else
        enter(Stage::Open);
}

void PortalFileDialog::onResponse(sd_bus_message* message) {
    uint32_t response = 0;
    if (sd_->sd_bus_message_read(message, "u", &response) < 0)
        return onLost();
    if (response == kChosen)
        readUris(message);
    // Any other answer than these two comes from a dialog that was closed, or from a portal that
    // could not show any.
    const bool hasFailed =
        response > kCancelled && (stage_ != Stage::Open || inStageMs() < kUnseenMs);
    enter(hasFailed ? Stage::Failed : Stage::Ended);
}

void PortalFileDialog::onOwnerChanged(sd_bus_message* message) {
    const char *name = nullptr, *before = nullptr, *after = nullptr;
    if (sd_->sd_bus_message_read(message, "sss", &name, &before, &after) >= 0 && !*after)
        onLost();
}

/// The portal is gone or the bus is: an open dialog with it.
void PortalFileDialog::onLost() {
    if (stage_ == Stage::Open)
        enter(Stage::Ended);
    else if (stage_ != Stage::Ended)
        enter(Stage::Failed);
}

void PortalFileDialog::readUris(sd_bus_message* results) {
    if (sd_->sd_bus_message_enter_container(results, 'a', "{sv}") < 0)
        return;
    while (sd_->sd_bus_message_enter_container(results, 'e', "sv") > 0) {
        const char* key = nullptr;
        if (sd_->sd_bus_message_read(results, "s", &key) < 0)
            return;
        if (std::string_view(key) != "uris") {
            sd_->sd_bus_message_skip(results, "v");
            sd_->sd_bus_message_exit_container(results);
            continue;
        }
        if (sd_->sd_bus_message_enter_container(results, 'v', "as") < 0 ||
            sd_->sd_bus_message_enter_container(results, 'a', "s") < 0)
            return;
        for (const char* uri = nullptr; sd_->sd_bus_message_read(results, "s", &uri) > 0;)
            if (std::string path = pathFromUri(uri); !path.empty())
                paths_.push_back(std::move(path));
        return;
    }
}

/// `path` as a value in an address.
std::string escapedForAddress(const std::string& path) {
    std::string escaped;
    for (const char c : path) {
        if (std::isalnum(static_cast<unsigned char>(c)) ||
            std::string_view("-_/.").find(c) != std::string_view::npos) {
            escaped += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02x", static_cast<unsigned char>(c));
        escaped += code;
    }
    return escaped;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

std::unique_ptr<FileDialogBackend> createPortalFileDialog() {
    return std::make_unique<PortalFileDialog>();
}

std::string sessionBusAddresses() {
    const char* given = getenv("DBUS_SESSION_BUS_ADDRESS");
    if (!given || !*given) {
        const char* directory = getenv("XDG_RUNTIME_DIR");
        struct stat status {};
        const std::string path = std::string(directory ? directory : "") + "/bus";
        const bool isBus =
            directory && stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
        return isBus ? "unix:path=" + escapedForAddress(path) : "";
    }
    std::string addresses;
    for (std::string_view rest = given; !rest.empty();) {
        const std::size_t length = std::min(rest.find(';'), rest.size());
        const std::string_view address = rest.substr(0, length);
        if (address.starts_with("unix:path=") || address.starts_with("unix:abstract="))
            addresses += (addresses.empty() ? "" : ";") + std::string(address);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return addresses;
}

std::string pathFromUri(const std::string& uri) {
    std::size_t place = 0;
    for (const std::string_view start : {"file:///", "file://localhost/", "file:/"})
        if (uri.starts_with(start)) {
            place = start.size() - 1;
            break;
        }
    if (place == 0 || uri.compare(place, 2, "//") == 0) // another machine's
        return {};
    std::string path;
    for (; place < uri.size(); ++place) {
        if (uri[place] != '%') {
            path += uri[place];
            continue;
        }
        const int high = place + 2 < uri.size() ? hexDigit(uri[place + 1]) : -1;
        const int low = high >= 0 ? hexDigit(uri[place + 2]) : -1;
        if (low < 0 || high + low == 0)
            return {};
        path += static_cast<char>(high * 16 + low);
        place += 2;
    }
    return path;
}

} // namespace VSTGUI
