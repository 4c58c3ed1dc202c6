#pragma once

#include <string>
#include <vector>

#include "vstgui/lib/cfileselector.h"

namespace VSTGUI {

/// Whoever asked for a file: how often an answer came, and the last one.
class FileDelegate : public CBaseObject {
public:
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override {
        if (message != CNewFileSelector::kSelectEndMessage)
            return kMessageUnknown;
        ++ends;
        paths.clear();
        auto* selector = static_cast<CNewFileSelector*>(sender);
        for (int32_t i = 0; i < selector->getNumSelectedFiles(); ++i)
            paths.push_back(selector->getSelectedFile(static_cast<uint32_t>(i)));
        return kMessageNotified;
    }
    int ends = 0;
    std::vector<std::string> paths;
};

} // namespace VSTGUI
