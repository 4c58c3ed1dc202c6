#pragma once

#include <string>
#include <vector>

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class CFrame;

/// A kind of file that a dialog offers. Texts are copied.
class CFileExtension : public CBaseObject {
public:
    /// @param extension  without the dot
    CFileExtension(UTF8StringPtr description, UTF8StringPtr extension,
                   UTF8StringPtr mimeType = nullptr, int32_t macType = 0);
    CFileExtension(const CFileExtension& ext);
    ~CFileExtension() override;

    UTF8StringPtr getDescription() const { return description_.c_str(); }
    UTF8StringPtr getExtension() const { return extension_.c_str(); }
    CLASS_METHODS(CFileExtension, CBaseObject)

private:
    std::string description_, extension_;
};

/// Asks the user for files or a folder without blocking the host.
class CNewFileSelector : public CBaseObject {
public:
    enum Style { kSelectFile, kSelectSaveFile, kSelectDirectory };

    static CNewFileSelector* create(CFrame* parent = nullptr, Style style = kSelectFile);

    /// Returns at once. Selector and delegate live until `delegate` was sent `kSelectEndMessage`;
    /// the caller may forget its own reference right away. Nothing may be chosen: look at
    /// `getNumSelectedFiles`.
    /// @return false when one is open in this frame already
    bool run(CBaseObject* delegate);
    /// Without a message to the delegate, which is given back. The frame's closing does the same.
    void cancel();
    /// Always false: waiting here would stop the host.
    bool runModal();

    void setTitle(UTF8StringPtr title);
    void setInitialDirectory(UTF8StringPtr path);
    void setDefaultSaveName(UTF8StringPtr name);
    void setDefaultExtension(const CFileExtension& extension); // once; adds it too
    void setAllowMultiFileSelection(bool state);
    void addFileExtension(const CFileExtension& extension);

    int32_t getNumSelectedFiles() const;
    /// An absolute path that lives as long as the selector; null outside.
    UTF8StringPtr getSelectedFile(uint32_t index) const;

    static IdStringPtr kSelectEndMessage;

protected:
    CNewFileSelector(CFrame* frame = nullptr);
    ~CNewFileSelector() override;

private:
    struct Dialog; // what is open, and by which means

    void closeDialog();

    CFrame* frame_;
    Style style_ = kSelectFile;
    std::string title_, initialDirectory_, defaultSaveName_;
    std::vector<CFileExtension> extensions_;
    int32_t defaultExtension_ = -1; // index into them
    bool severalFiles_ = false;
    std::vector<std::string> selectedFiles_;
    Dialog* dialog_ = nullptr; // holds this object while it is open
};

} // namespace VSTGUI
