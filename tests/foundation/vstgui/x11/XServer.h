#pragma once

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace VSTGUI {

/// An X server without a screen, for this program alone; ends with the object or the program.
class XServer {
public:
    /// Null when Xvfb is not installed. @param options  added to its command line
    static std::unique_ptr<XServer> start(const std::vector<std::string>& options = {});
    ~XServer() { kill(); }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// Makes it the one that connections go to.
    void use() const;
    /// As a crash would.
    void kill();

private:
    XServer(pid_t process, std::string display) : process_(process), display_(display) {}

    pid_t process_;
    std::string display_;
};

/// The server that most tests share, started at the first call. Null without Xvfb.
XServer* sharedXServer();

} // namespace VSTGUI
