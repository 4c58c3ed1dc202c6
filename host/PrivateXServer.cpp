#include "host/PrivateXServer.h"

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pedl {

namespace {

constexpr int kDisplayDescriptor = 3;

[[noreturn]] void becomeXvfb(int displayPipe, const std::vector<std::string>& options) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    setpgid(0, 0); // Ctrl-C ends the program alone, which has windows to close first
    dup2(displayPipe, kDisplayDescriptor);
    std::vector<std::string> words{"Xvfb",      "-displayfd", std::to_string(kDisplayDescriptor),
                                   "-screen",   "0",          "1280x800x24",
                                   "-nolisten", "tcp",        "-noreset"};
    words.insert(words.end(), options.begin(), options.end());
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    if (!freopen("/dev/null", "w", stderr))
        _exit(1);
    execvp("Xvfb", arguments.data());
    _exit(127);
}

/// The number that the server writes when it is ready; nothing when it ends before.
std::string readLine(int descriptor) {
    std::string line;
    char byte = 0;
    while (read(descriptor, &byte, 1) == 1 && byte != '\n')
        line += byte;
    return line;
}

} // namespace

std::unique_ptr<PrivateXServer> PrivateXServer::start(const std::vector<std::string>& options) {
    int ends[2];
    if (pipe(ends) != 0)
        return nullptr;
    const pid_t process = fork();
    if (process == 0)
        becomeXvfb(ends[1], options);
    close(ends[1]);
    const std::string number = readLine(ends[0]);
    close(ends[0]);
    std::unique_ptr<PrivateXServer> server(new PrivateXServer(process, ":" + number));
    return number.empty() ? nullptr : std::move(server);
}

void PrivateXServer::use() const {
    setenv("DISPLAY", display_.c_str(), 1);
}

void PrivateXServer::kill() {
    end(SIGKILL);
}

/// A server that ends by itself takes its lock and its socket along.
PrivateXServer::~PrivateXServer() {
    end(SIGTERM);
}

void PrivateXServer::end(int signal) {
    if (process_ <= 0)
        return;
    ::kill(process_, signal);
    waitpid(process_, nullptr, 0);
    process_ = -1;
}

} // namespace pedl
