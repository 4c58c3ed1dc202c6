#pragma once

#include "host/PrivateXServer.h"

namespace VSTGUI {

using XServer = pedl::PrivateXServer;

/// The server that most tests share, started at the first call. Null without Xvfb.
inline XServer* sharedXServer() {
    static const std::unique_ptr<XServer> server = XServer::start();
    if (server)
        server->use();
    return server.get();
}

} // namespace VSTGUI
