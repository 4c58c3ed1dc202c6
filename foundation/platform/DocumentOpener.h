#pragma once

#include <string>

namespace pedl {

/// Shows the user a web page or a document in the program that the desktop has for it.
/// Thread: user interface.
class DocumentOpener {
public:
    virtual ~DocumentOpener() = default;

    /// @param target  a web address or the path of a file
    /// @return whether a program could be started; what becomes of it is not waited for
    virtual bool open(const std::string& target) = 0;
};

} // namespace pedl
