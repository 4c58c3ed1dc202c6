#pragma once

#include <systemd/sd-bus.h>

#include <memory>

namespace VSTGUI {

// clang-format off
#define VSTGUI_SD_BUS_FUNCTIONS(X)                                                                 \
    X(sd_bus_new) X(sd_bus_set_address) X(sd_bus_set_bus_client) X(sd_bus_start)                   \
    X(sd_bus_is_ready) X(sd_bus_get_unique_name) X(sd_bus_process) X(sd_bus_close_unref)           \
    X(sd_bus_add_match_async) X(sd_bus_call_async) X(sd_bus_send)                                  \
    X(sd_bus_message_new_method_call) X(sd_bus_message_unref) X(sd_bus_message_append)             \
    X(sd_bus_message_append_array) X(sd_bus_message_open_container)                                \
    X(sd_bus_message_close_container) X(sd_bus_message_is_method_error) X(sd_bus_message_read)     \
    X(sd_bus_message_enter_container) X(sd_bus_message_exit_container) X(sd_bus_message_skip)
// clang-format on

/// The D-Bus functions of `libsystemd.so.0`, under their own names. The library is not linked: it
/// is opened for a dialog and closed with it, and where there is none another dialog serves.
struct SdBus {
    /// Null where the library or a part of it is missing.
    static std::unique_ptr<SdBus> open();
    ~SdBus();
    SdBus(const SdBus&) = delete;
    SdBus& operator=(const SdBus&) = delete;

// A name that is declared cannot stand in parentheses.
// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define VSTGUI_SD_BUS_POINTER(name) decltype(&::name) name = nullptr;
    VSTGUI_SD_BUS_FUNCTIONS(VSTGUI_SD_BUS_POINTER)
#undef VSTGUI_SD_BUS_POINTER

private:
    explicit SdBus(void* library) : library_(library) {}

    void* library_;
};

} // namespace VSTGUI
