#pragma once

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace pedl {

/// An X server without a screen, for this program alone; ends with the object or the program.
class PrivateXServer {
public:
    /// Null when Xvfb is not installed. @param options  added to its command line
    static std::unique_ptr<PrivateXServer> start(const std::vector<std::string>& options = {});
    ~PrivateXServer();
    PrivateXServer(const PrivateXServer&) = delete;
    PrivateXServer& operator=(const PrivateXServer&) = delete;

    /// Makes it the one that connections go to.
    void use() const;
    /// As a crash would.
    void kill();

private:
    PrivateXServer(pid_t process, std::string display)
        : process_(process), display_(std::move(display)) {}

    void end(int signal);

    pid_t process_;
    std::string display_;
};

} // namespace pedl
