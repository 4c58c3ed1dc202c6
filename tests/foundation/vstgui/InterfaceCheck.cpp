/// Compiled, never run: the toolkit's interface as controls and editors written elsewhere meet it.
///
/// Each class is derived from with every virtual operation overridden; the operations that are not
/// virtual are taken as pointers of their exact type, and constructors, fields and constants used.

#include <type_traits>

#include "vstgui/vstgui.h"

#define SAME(entity, ...) static_assert(std::is_same_v<decltype(entity), __VA_ARGS__>)
#define TAKEN(Class, name, ...) static_cast<void>(static_cast<__VA_ARGS__>(&Class::name))

namespace interfacecheck {

template <class Class, class Function> using Op = Function Class::*;

// clang-format off

struct MyCBaseObject : CBaseObject {
    using CBaseObject::CBaseObject; void forget() override; void remember() override;
    int32_t getNbReference() const override;
    CMessageResult notify(CBaseObject*, IdStringPtr) override;
    bool isTypeOf(IdStringPtr) const override; CBaseObject* newCopy() const override;
};
struct MyCView : CView {
    using CView::CView; void draw(CDrawContext*) override;
    void drawRect(CDrawContext*, const CRect&) override;
    bool checkUpdate(const CRect&) const override; bool isDirty() const override;
    void setDirty(bool) override; void invalidRect(const CRect&) override; void invalid() override;
    void setVisible(bool) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseEntered(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseExited(CPoint&, const CButtonState&) override;
    bool hitTest(const CPoint&, const CButtonState&) override;
    bool onWheel(const CPoint&, const float&, const CButtonState&) override;
    bool onWheel(const CPoint&, const CMouseWheelAxis&, const float&, const CButtonState&) override;
    void setMouseEnabled(bool) override; bool getMouseEnabled() const override;
    void setMouseableArea(const CRect&) override; CRect& getMouseableArea(CRect&) const override;
    const CRect& getMouseableArea() const override; int32_t onKeyDown(VstKeyCode&) override;
    int32_t onKeyUp(VstKeyCode&) override; void setViewSize(const CRect&, bool) override;
    CRect getVisibleSize() const override; void parentSizeChanged() override;
    CPoint& frameToLocal(CPoint&) const override; CPoint& localToFrame(CPoint&) const override;
    bool sizeToFit() override; void looseFocus() override; void takeFocus() override;
    bool wantsFocus() const override; void setWantsFocus(bool) override;
    void setBackground(CBitmap*) override; CBitmap* getBackground() const override;
    void setTransparency(bool) override; bool getTransparency() const override;
    void setAlphaValue(float) override; bool removed(CView*) override;
    bool attached(CView*) override; VSTGUIEditorInterface* getEditor() const override;
    CMessageResult notify(CBaseObject*, IdStringPtr) override;
    void fields() {
        SAME(size, CRect); SAME(mouseableArea, CRect); SAME(pParentFrame, CFrame*);
        SAME(pParentView, CView*); SAME(pBackground, CBitmap*);
    }
};
struct MyCViewContainer : CViewContainer {
    using CViewContainer::CViewContainer; bool addView(CView*) override;
    bool addView(CView*, const CRect&, bool) override; bool addView(CView*, CView*) override;
    bool removeView(CView*, bool) override; bool removeAll(bool) override;
    bool isChild(CView*) const override; bool isChild(CView*, bool) const override;
    int32_t getNbViews() const override; CView* getView(int32_t) const override;
    CView* getViewAt(const CPoint&, bool) const override;
    CViewContainer* getContainerAt(const CPoint&, bool) const override;
    void setBackgroundColor(const CColor&) override; CColor getBackgroundColor() const override;
    bool advanceNextFocusView(CView*, bool) override; bool invalidateDirtyViews() override;
    void draw(CDrawContext*) override; void drawRect(CDrawContext*, const CRect&) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    bool onWheel(const CPoint&, const float&, const CButtonState&) override;
    bool onWheel(const CPoint&, const CMouseWheelAxis&, const float&, const CButtonState&) override;
    void invalidRect(const CRect&) override; void invalid() override;
    bool isDirty() const override; bool attached(CView*) override; bool removed(CView*) override;
    void fields() {
        SAME(mouseDownView, CView*);
    }
};
struct MyIPlatformFrameCallback : IPlatformFrameCallback {
    using IPlatformFrameCallback::IPlatformFrameCallback;
    bool platformDrawRect(CDrawContext*, const CRect&) override;
    CMouseEventResult platformOnMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseMoved(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseExited(CPoint&, const CButtonState&) override;
    bool platformOnMouseWheel(const CPoint&, const CMouseWheelAxis&, const float&, const CButtonState&) override;
    bool platformOnKeyDown(VstKeyCode&) override; bool platformOnKeyUp(VstKeyCode&) override;
    void platformOnActivate(bool) override;
};
struct MyVSTGUIEditorInterface : VSTGUIEditorInterface {
    using VSTGUIEditorInterface::VSTGUIEditorInterface; void doIdleStuff() override;
    int32_t getKnobMode() const override; void beginEdit(int32_t) override;
    void endEdit(int32_t) override; bool beforeSizeChange(const CRect&, const CRect&) override;
    CFrame* getFrame() const override;
    void fields() {
        SAME(frame, CFrame*);
    }
};
struct MyCFrame : CFrame {
    using CFrame::CFrame; void close() override; void idle() override; void doIdleStuff() override;
    uint32_t getTicks() const override; int32_t getKnobMode() const override;
    bool setSize(CCoord, CCoord) override; bool getSize(CRect&) const override;
    bool setModalView(CView*) override; CView* getModalView() const override;
    void beginEdit(int32_t) override; void endEdit(int32_t) override;
    bool getCurrentMouseLocation(CPoint&) const override;
    CButtonState getCurrentMouseButtons() const override; void setCursor(CCursorType) override;
    void setFocusView(CView*) override; CView* getFocusView() const override;
    void onViewAdded(CView*) override; void onViewRemoved(CView*) override;
    void onActivate(bool) override; VSTGUIEditorInterface* getEditor() const override;
    int32_t onKeyDown(VstKeyCode&) override; int32_t onKeyUp(VstKeyCode&) override;
    bool platformDrawRect(CDrawContext*, const CRect&) override;
    CMouseEventResult platformOnMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseMoved(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult platformOnMouseExited(CPoint&, const CButtonState&) override;
    bool platformOnMouseWheel(const CPoint&, const CMouseWheelAxis&, const float&, const CButtonState&) override;
    bool platformOnKeyDown(VstKeyCode&) override; bool platformOnKeyUp(VstKeyCode&) override;
    void platformOnActivate(bool) override;
};
struct MyIPlatformFrame : IPlatformFrame {
    using IPlatformFrame::IPlatformFrame; bool getGlobalPosition(CPoint&) const override;
    bool setSize(const CRect&) override; bool getSize(CRect&) const override;
    bool getCurrentMousePosition(CPoint&) const override;
    bool getCurrentMouseButtons(CButtonState&) const override;
    bool setMouseCursor(CCursorType) override; bool invalidRect(const CRect&) override;
    void* getPlatformRepresentation() const override;
    IPlatformTextEdit* createPlatformTextEdit(IPlatformTextEditCallback*) override;
    IPlatformOptionMenu* createPlatformOptionMenu() override;
    COffscreenContext* createOffscreenContext(CCoord, CCoord) override;
};
struct MyCFontDesc : CFontDesc {
    using CFontDesc::CFontDesc; void setName(UTF8StringPtr) override;
    void setSize(CCoord) override; void setStyle(int32_t) override;
};
struct MyCBitmap : CBitmap {
    using CBitmap::CBitmap; void draw(CDrawContext*, const CRect&, const CPoint&, float) override;
};
struct MyCDrawContext : CDrawContext {
    using CDrawContext::CDrawContext; void moveTo(const CPoint&) override;
    void lineTo(const CPoint&) override; void drawRect(const CRect&, const CDrawStyle) override;
    void drawPolygon(const CPoint*, int32_t, const CDrawStyle) override;
    void drawBitmap(CBitmap*, const CRect&, const CPoint&, float) override;
    void clearRect(const CRect&) override; void setLineWidth(CCoord) override;
    void setDrawMode(CDrawMode) override; void setClipRect(const CRect&) override;
    void resetClipRect() override; void setFillColor(const CColor&) override;
    void setFrameColor(const CColor&) override; void setFontColor(const CColor&) override;
    void setFont(const CFontRef, const CCoord&, const int32_t&) override;
    void setGlobalAlpha(float) override; void saveGlobalState() override;
    void restoreGlobalState() override; void setOffset(const CPoint&) override;
    void beginDraw() override; void endDraw() override;
};
struct MyCControlListener : CControlListener {
    using CControlListener::CControlListener; void valueChanged(CControl*) override;
    int32_t controlModifierClicked(CControl*, CButtonState) override;
    void controlBeginEdit(CControl*) override; void controlEndEdit(CControl*) override;
};
struct MyCControl : CControl {
    using CControl::CControl; void setValue(float) override; float getValue() const override;
    void setValueNormalized(float) override; float getValueNormalized() const override;
    void setMin(float) override; float getMin() const override; void setMax(float) override;
    float getMax() const override; void setOldValue(float) override;
    float getOldValue() const override; void setDefaultValue(float) override;
    float getDefaultValue() const override; void bounceValue() override;
    bool checkDefaultValue(CButtonState) override; void valueChanged() override;
    void setTag(int32_t) override; int32_t getTag() const override; void beginEdit() override;
    void endEdit() override; CControlListener* getListener() const override;
    void setListener(CControlListener*) override; void setBackOffset(const CPoint&) override;
    const CPoint& getBackOffset() const override; void copyBackOffset() override;
    void setWheelInc(float) override; float getWheelInc() const override;
    void draw(CDrawContext*) override; bool isDirty() const override; void setDirty(bool) override;
    using CControl::mapVstKeyModifier;
    void fields() {
        SAME(kZoomModifier, int32_t); SAME(kDefaultValueModifier, int32_t);
        SAME(listener, CControlListener*); SAME(tag, int32_t); SAME(oldValue, float);
        SAME(defaultValue, float); SAME(value, float); SAME(vmin, float); SAME(vmax, float);
        SAME(wheelInc, float); SAME(backOffset, CPoint);
    }
};
struct MyIMultiBitmapControl : IMultiBitmapControl {
    using IMultiBitmapControl::IMultiBitmapControl;
    void setHeightOfOneImage(const CCoord&) override; CCoord getHeightOfOneImage() const override;
    void setNumSubPixmaps(int32_t) override; int32_t getNumSubPixmaps() const override;
    void fields() {
        SAME(heightOfOneImage, CCoord); SAME(subPixmaps, int32_t);
    }
};
struct MyCKnob : CKnob {
    using CKnob::CKnob; void setZoomFactor(float) override; float getZoomFactor() const override;
    void draw(CDrawContext*) override;
    bool onWheel(const CPoint&, const float&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    void fields() {
        SAME(offset, CPoint); SAME(pHandle, CBitmap*); SAME(zoomFactor, float);
    }
};
struct MyCAnimKnob : CAnimKnob {
    using CAnimKnob::CAnimKnob; void draw(CDrawContext*) override; bool sizeToFit() override;
    void setHeightOfOneImage(const CCoord&) override; void setNumSubPixmaps(int32_t) override;
};
struct MyCHorizontalSwitch : CHorizontalSwitch {
    using CHorizontalSwitch::CHorizontalSwitch; void draw(CDrawContext*) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; bool sizeToFit() override;
    void fields() {
        SAME(offset, CPoint);
    }
};
struct MyCOnOffButton : COnOffButton {
    using COnOffButton::COnOffButton; void draw(CDrawContext*) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; bool sizeToFit() override;
    void fields() {
        SAME(style, int32_t);
    }
};
struct MyCKickButton : CKickButton {
    using CKickButton::CKickButton; void draw(CDrawContext*) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; int32_t onKeyUp(VstKeyCode&) override;
    bool sizeToFit() override;
    void fields() {
        SAME(offset, CPoint);
    }
};
struct MyCVSTGUITimer : CVSTGUITimer {
    using CVSTGUITimer::CVSTGUITimer; bool start() override; bool stop() override;
    bool setFireTime(int32_t) override;
    void fields() {
        SAME(kMsgTimer, IdStringPtr);
    }
};
struct MyCRockerSwitch : CRockerSwitch {
    using CRockerSwitch::CRockerSwitch; void draw(CDrawContext*) override;
    bool onWheel(const CPoint&, const float&, const CButtonState&) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseUp(CPoint&, const CButtonState&) override;
    CMouseEventResult onMouseMoved(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; int32_t onKeyUp(VstKeyCode&) override;
    CMessageResult notify(CBaseObject*, IdStringPtr) override;
    void fields() {
        SAME(offset, CPoint); SAME(style, int32_t); SAME(resetValueTimer, CVSTGUITimer*);
    }
};
struct MyCMovieBitmap : CMovieBitmap {
    using CMovieBitmap::CMovieBitmap; void draw(CDrawContext*) override; bool sizeToFit() override;
    void fields() {
        SAME(offset, CPoint);
    }
};
struct MyCSplashScreen : CSplashScreen {
    using CSplashScreen::CSplashScreen; void draw(CDrawContext*) override;
    bool hitTest(const CPoint&, const CButtonState&) override; void unSplash() override;
    void setDisplayArea(const CRect&) override; CRect& getDisplayArea(CRect&) const override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    void valueChanged(CControl*) override;
    void fields() {
        SAME(toDisplay, CRect); SAME(keepSize, CRect); SAME(offset, CPoint);
        SAME(modalView, CView*);
    }
};
struct MyCParamDisplay : CParamDisplay {
    using CParamDisplay::CParamDisplay; void setFont(CFontRef) override;
    void setFontColor(CColor) override; void setBackColor(CColor) override;
    void setFrameColor(CColor) override; void setShadowColor(CColor) override;
    void setAntialias(bool) override; void setHoriAlign(CHoriTxtAlign) override;
    void setTextInset(const CPoint&) override;
    void setValueToStringProc(CParamDisplayValueToStringProc, void*) override;
    void setStyle(int32_t) override; void draw(CDrawContext*) override;
    void drawBack(CDrawContext*, CBitmap*) override;
    void drawText(CDrawContext*, UTF8StringPtr) override;
    void fields() {
        SAME(valueToString, CParamDisplayValueToStringProc); SAME(valueToStringUserData, void*);
        SAME(horiTxtAlign, CHoriTxtAlign); SAME(style, int32_t); SAME(fontID, CFontRef);
        SAME(fontColor, CColor); SAME(backColor, CColor); SAME(frameColor, CColor);
        SAME(shadowColor, CColor); SAME(textInset, CPoint); SAME(bAntialias, bool);
    }
};
struct MyCTextLabel : CTextLabel {
    using CTextLabel::CTextLabel; void setText(UTF8StringPtr) override;
    UTF8StringPtr getText() const override; void draw(CDrawContext*) override;
    bool sizeToFit() override; using CTextLabel::freeText;
    void fields() {
        SAME(text, UTF8StringBuffer);
    }
};
struct MyIPlatformTextEditCallback : IPlatformTextEditCallback {
    using IPlatformTextEditCallback::IPlatformTextEditCallback;
    CColor platformGetBackColor() const override; CColor platformGetFontColor() const override;
    CFontRef platformGetFont() const override;
    CHoriTxtAlign platformGetHoriTxtAlign() const override;
    UTF8StringPtr platformGetText() const override; CRect platformGetSize() const override;
    CRect platformGetVisibleSize() const override; CPoint platformGetTextInset() const override;
    void platformLooseFocus(bool) override; bool platformOnKeyDown(const VstKeyCode&) override;
    void platformTextDidChange() override;
};
struct MyIPlatformTextEdit : IPlatformTextEdit {
    using IPlatformTextEdit::IPlatformTextEdit; UTF8StringPtr getText() override;
    bool setText(UTF8StringPtr) override; bool updateSize() override;
    void fields() {
        SAME(textEdit, IPlatformTextEditCallback*);
    }
};
struct MyCTextEdit : CTextEdit {
    using CTextEdit::CTextEdit; void setText(UTF8StringPtr) override;
    void setValue(float) override; void draw(CDrawContext*) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; void takeFocus() override; void looseFocus() override;
    void setViewSize(const CRect&, bool) override; CColor platformGetBackColor() const override;
    CColor platformGetFontColor() const override; CFontRef platformGetFont() const override;
    CHoriTxtAlign platformGetHoriTxtAlign() const override;
    UTF8StringPtr platformGetText() const override; CRect platformGetSize() const override;
    CRect platformGetVisibleSize() const override; CPoint platformGetTextInset() const override;
    void platformLooseFocus(bool) override; bool platformOnKeyDown(const VstKeyCode&) override;
    void platformTextDidChange() override;
    void fields() {
        SAME(bWasReturnPressed, bool); SAME(platformControl, IPlatformTextEdit*);
    }
};
struct MyCMenuItem : CMenuItem {
    using CMenuItem::CMenuItem; void setTitle(UTF8StringPtr) override;
    void setEnabled(bool) override; void setChecked(bool) override; void setTag(int32_t) override;
};
struct MyIPlatformOptionMenu : IPlatformOptionMenu {
    using IPlatformOptionMenu::IPlatformOptionMenu;
    PlatformOptionMenuResult popup(COptionMenu*) override;
};
struct MyCOptionMenu : COptionMenu {
    using COptionMenu::COptionMenu; CMenuItem* addEntry(CMenuItem*, int32_t) override;
    CMenuItem* addEntry(UTF8StringPtr, int32_t, int32_t) override;
    CMenuItem* addSeparator(int32_t) override; CMenuItem* getCurrent() const override;
    int32_t getCurrentIndex(bool) const override; CMenuItem* getEntry(int32_t) const override;
    int32_t getNbEntries() const override; bool setCurrent(int32_t, bool) override;
    bool removeEntry(int32_t) override; bool removeAllEntry() override;
    bool checkEntry(int32_t, bool) override; bool checkEntryAlone(int32_t) override;
    bool isCheckEntry(int32_t) const override; void setNbItemsPerColumn(int32_t) override;
    int32_t getNbItemsPerColumn() const override; void setValue(float) override;
    void setMin(float) override; float getMin() const override; void setMax(float) override;
    float getMax() const override; void draw(CDrawContext*) override;
    CMouseEventResult onMouseDown(CPoint&, const CButtonState&) override;
    int32_t onKeyDown(VstKeyCode&) override; void takeFocus() override; void looseFocus() override;
};
struct MyAEffGUIEditor : AEffGUIEditor {
    using AEffGUIEditor::AEffGUIEditor; void setParameter(int32_t, float) override;
    bool getRect(ERect**) override; bool open(void*) override; void idle() override;
    bool onKeyDown(VstKeyCode&) override; bool onKeyUp(VstKeyCode&) override;
    bool onWheel(float) override; bool setKnobMode(int32_t) override;
    int32_t getKnobMode() const override; void doIdleStuff() override;
    void beginEdit(int32_t) override; void endEdit(int32_t) override;
    bool beforeSizeChange(const CRect&, const CRect&) override;
    void fields() {
        SAME(rect, ERect);
    }
};

[[maybe_unused]] void takeOperations() {
    TAKEN(CPoint, operator(), Op<CPoint, CPoint&(CCoord, CCoord)>);
    TAKEN(CPoint, isInside, Op<CPoint, bool(const CRect&) const>);
    TAKEN(CPoint, operator==, Op<CPoint, bool(const CPoint&) const>);
    TAKEN(CPoint, operator!=, Op<CPoint, bool(const CPoint&) const>);
    TAKEN(CPoint, operator+=, Op<CPoint, CPoint&(const CPoint&)>);
    TAKEN(CPoint, operator-=, Op<CPoint, CPoint&(const CPoint&)>);
    TAKEN(CPoint, operator+, Op<CPoint, CPoint(const CPoint&) const>);
    TAKEN(CPoint, operator-, Op<CPoint, CPoint(const CPoint&) const>);
    TAKEN(CPoint, offset, Op<CPoint, CPoint&(CCoord, CCoord)>);
    TAKEN(CPoint, makeIntegral, Op<CPoint, void()>);
    TAKEN(CRect, operator(), Op<CRect, CRect&(CCoord, CCoord, CCoord, CCoord)>);
    TAKEN(CRect, operator==, Op<CRect, bool(const CRect&) const>);
    TAKEN(CRect, operator!=, Op<CRect, bool(const CRect&) const>);
    TAKEN(CRect, width, Op<CRect, CCoord() const>);
    TAKEN(CRect, height, Op<CRect, CCoord() const>);
    TAKEN(CRect, getWidth, Op<CRect, CCoord() const>);
    TAKEN(CRect, getHeight, Op<CRect, CCoord() const>);
    TAKEN(CRect, setWidth, Op<CRect, void(CCoord)>);
    TAKEN(CRect, setHeight, Op<CRect, void(CCoord)>);
    TAKEN(CRect, getTopLeft, Op<CRect, CPoint() const>);
    TAKEN(CRect, getBottomRight, Op<CRect, CPoint() const>);
    TAKEN(CRect, getCenter, Op<CRect, CPoint() const>);
    TAKEN(CRect, getSize, Op<CRect, CPoint() const>);
    TAKEN(CRect, setTopLeft, Op<CRect, void(const CPoint&)>);
    TAKEN(CRect, setSize, Op<CRect, void(const CPoint&)>);
    TAKEN(CRect, offset, Op<CRect, CRect&(CCoord, CCoord)>);
    TAKEN(CRect, inset, Op<CRect, CRect&(CCoord, CCoord)>);
    TAKEN(CRect, moveTo, Op<CRect, CRect&(CCoord, CCoord)>);
    TAKEN(CRect, pointInside, Op<CRect, bool(const CPoint&) const>);
    TAKEN(CRect, isEmpty, Op<CRect, bool() const>);
    TAKEN(CRect, rectOverlap, Op<CRect, bool(const CRect&) const>);
    TAKEN(CRect, bound, Op<CRect, void(const CRect&)>);
    TAKEN(CRect, unite, Op<CRect, void(const CRect&)>); TAKEN(CRect, normalize, Op<CRect, void()>);
    TAKEN(CRect, originize, Op<CRect, void()>);
    TAKEN(CRect, centerInside, Op<CRect, void(const CRect&)>);
    TAKEN(CRect, makeIntegral, Op<CRect, void()>);
    TAKEN(CColor, operator(), Op<CColor, CColor&(uint8_t, uint8_t, uint8_t, uint8_t)>);
    TAKEN(CColor, operator==, Op<CColor, bool(const CColor&) const>);
    TAKEN(CColor, operator!=, Op<CColor, bool(const CColor&) const>);
    TAKEN(CButtonState, getButtonState, Op<CButtonState, int32_t() const>);
    TAKEN(CButtonState, getModifierState, Op<CButtonState, int32_t() const>);
    TAKEN(CButtonState, isLeftButton, Op<CButtonState, bool() const>);
    TAKEN(CButtonState, isRightButton, Op<CButtonState, bool() const>);
    TAKEN(CButtonState, isDoubleClick, Op<CButtonState, bool() const>);
    TAKEN(CButtonState, operator(), Op<CButtonState, int32_t() const>);
    TAKEN(CButtonState, operator=, Op<CButtonState, CButtonState&(const CButtonState&)>);
    TAKEN(CButtonState, operator&=, Op<CButtonState, CButtonState&(int32_t)>);
    TAKEN(CButtonState, operator|=, Op<CButtonState, CButtonState&(int32_t)>);
    TAKEN(CButtonState, operator&, Op<CButtonState, int32_t(const CButtonState&) const>);
    TAKEN(CButtonState, operator|, Op<CButtonState, int32_t(const CButtonState&) const>);
    TAKEN(CButtonState, operator==, Op<CButtonState, bool(const CButtonState&) const>);
    TAKEN(CButtonState, operator!=, Op<CButtonState, bool(const CButtonState&) const>);
    TAKEN(CView, isVisible, Op<CView, bool() const>);
    TAKEN(CView, getHeight, Op<CView, CCoord() const>);
    TAKEN(CView, getWidth, Op<CView, CCoord() const>);
    TAKEN(CView, getViewSize, Op<CView, CRect&(CRect&) const>);
    TAKEN(CView, getViewSize, Op<CView, const CRect&() const>);
    TAKEN(CView, getAlphaValue, Op<CView, float() const>);
    TAKEN(CView, isAttached, Op<CView, bool() const>);
    TAKEN(CView, getParentView, Op<CView, CView*() const>);
    TAKEN(CView, getFrame, Op<CView, CFrame*() const>);
    TAKEN(CFrame, getPlatformFrame, Op<CFrame, IPlatformFrame*() const>);
    TAKEN(IPlatformFrame, createPlatformFrame, IPlatformFrame* (*)(IPlatformFrameCallback*, const CRect&, void*));
    TAKEN(IPlatformFrame, getTicks, uint32_t (*)());
    TAKEN(CFontDesc, getName, Op<CFontDesc, UTF8StringPtr() const>);
    TAKEN(CFontDesc, getSize, Op<CFontDesc, const CCoord&() const>);
    TAKEN(CFontDesc, getStyle, Op<CFontDesc, const int32_t&() const>);
    TAKEN(CBitmap, getWidth, Op<CBitmap, CCoord() const>);
    TAKEN(CBitmap, getHeight, Op<CBitmap, CCoord() const>);
    TAKEN(CBitmap, isLoaded, Op<CBitmap, bool() const>);
    TAKEN(CBitmap, getPlatformBitmap, Op<CBitmap, IPlatformBitmap*() const>);
    TAKEN(CDrawContext, getClipRect, Op<CDrawContext, CRect&(CRect&) const>);
    TAKEN(CDrawContext, getFont, Op<CDrawContext, const CFontRef&() const>);
    TAKEN(CDrawContext, getStringWidth, Op<CDrawContext, CCoord(UTF8StringPtr)>);
    TAKEN(CDrawContext, drawString, Op<CDrawContext, void(UTF8StringPtr, const CRect&, const CHoriTxtAlign, bool)>);
    TAKEN(CDrawContext, drawString, Op<CDrawContext, void(UTF8StringPtr, const CPoint&, bool)>);
    TAKEN(CDrawContext, getGlobalAlpha, Op<CDrawContext, float() const>);
    TAKEN(CDrawContext, getOffset, Op<CDrawContext, const CPoint&() const>);
    TAKEN(COffscreenContext, create, COffscreenContext* (*)(CFrame*, CCoord, CCoord));
    TAKEN(COffscreenContext, copyFrom, Op<COffscreenContext, void(CDrawContext*, CRect, CPoint)>);
    TAKEN(COffscreenContext, getWidth, Op<COffscreenContext, CCoord() const>);
    TAKEN(COffscreenContext, getHeight, Op<COffscreenContext, CCoord() const>);
    TAKEN(COffscreenContext, getBitmap, Op<COffscreenContext, CBitmap*() const>);
    TAKEN(MyCControl, mapVstKeyModifier, int32_t (*)(int32_t));
    TAKEN(CVSTGUITimer, getFireTime, Op<CVSTGUITimer, int32_t() const>);
    TAKEN(CParamDisplay, getFont, Op<CParamDisplay, CFontRef() const>);
    TAKEN(CParamDisplay, getFontColor, Op<CParamDisplay, CColor() const>);
    TAKEN(CParamDisplay, getBackColor, Op<CParamDisplay, CColor() const>);
    TAKEN(CParamDisplay, getHoriAlign, Op<CParamDisplay, CHoriTxtAlign() const>);
    TAKEN(CParamDisplay, getTextInset, Op<CParamDisplay, CPoint() const>);
    TAKEN(CParamDisplay, getStyle, Op<CParamDisplay, int32_t() const>);
    TAKEN(MyCTextLabel, freeText, Op<CTextLabel, void()>);
    TAKEN(CMenuItem, isEnabled, Op<CMenuItem, bool() const>);
    TAKEN(CMenuItem, isChecked, Op<CMenuItem, bool() const>);
    TAKEN(CMenuItem, isTitle, Op<CMenuItem, bool() const>);
    TAKEN(CMenuItem, isSeparator, Op<CMenuItem, bool() const>);
    TAKEN(CMenuItem, getTitle, Op<CMenuItem, UTF8StringPtr() const>);
    TAKEN(CMenuItem, getTag, Op<CMenuItem, int32_t() const>);
    TAKEN(COptionMenu, getLastResult, Op<COptionMenu, int32_t() const>);
    TAKEN(COptionMenu, popup, Op<COptionMenu, bool()>);
    TAKEN(COptionMenu, getItems, Op<COptionMenu, CMenuItemList*() const>);
    TAKEN(CFileExtension, getDescription, Op<CFileExtension, UTF8StringPtr() const>);
    TAKEN(CFileExtension, getExtension, Op<CFileExtension, UTF8StringPtr() const>);
    TAKEN(CNewFileSelector, create, CNewFileSelector* (*)(CFrame*, CNewFileSelector::Style));
    TAKEN(CNewFileSelector, run, Op<CNewFileSelector, bool(CBaseObject*)>);
    TAKEN(CNewFileSelector, cancel, Op<CNewFileSelector, void()>);
    TAKEN(CNewFileSelector, runModal, Op<CNewFileSelector, bool()>);
    TAKEN(CNewFileSelector, setTitle, Op<CNewFileSelector, void(UTF8StringPtr)>);
    TAKEN(CNewFileSelector, setInitialDirectory, Op<CNewFileSelector, void(UTF8StringPtr)>);
    TAKEN(CNewFileSelector, setDefaultSaveName, Op<CNewFileSelector, void(UTF8StringPtr)>);
    TAKEN(CNewFileSelector, setDefaultExtension, Op<CNewFileSelector, void(const CFileExtension&)>);
    TAKEN(CNewFileSelector, setAllowMultiFileSelection, Op<CNewFileSelector, void(bool)>);
    TAKEN(CNewFileSelector, addFileExtension, Op<CNewFileSelector, void(const CFileExtension&)>);
    TAKEN(CNewFileSelector, getNumSelectedFiles, Op<CNewFileSelector, int32_t() const>);
    TAKEN(CNewFileSelector, getSelectedFile, Op<CNewFileSelector, UTF8StringPtr(uint32_t) const>);
    TAKEN(AEffGUIEditor, getTicks, Op<AEffGUIEditor, uint32_t()>);
    TAKEN(AEffGUIEditor, getEffect, Op<AEffGUIEditor, AudioEffect*()>);
}

[[maybe_unused]] void construct(void* window, VSTGUIEditorInterface* editor, IPlatformBitmap* image) {
    const CRect r(CPoint(1, 2), CPoint(3, 4));
    CBitmap* const b = new CBitmap(12100);
    CControlListener* const l = nullptr;
    const CResourceDescription unknown, byName("name");
    new CBitmap(byName); new CBitmap(1, 2); new CBitmap(image);
    new CFontDesc; new CFontDesc("Arial", 12, kBoldFace); new CFontDesc(*kNormalFont);
    new CFileExtension("Text", "txt"); new CFileExtension("Text", "txt", "text/plain", 0);
    struct Held {
        static void keep(CBaseObject* object) { object->forget(); }
    };
    auto* const view = new CView(r);
    Held::keep(new CView(*view));
    Held::keep(new CViewContainer(r)); Held::keep(new CViewContainer(r, nullptr, b));
    Held::keep(new CFrame(r, window, editor));
    Held::keep(new CKnob(r, l, 1, b, b)); Held::keep(new CKnob(r, l, 1, b, b, CPoint(), 0));
    Held::keep(new CAnimKnob(r, l, 1, 2, 3, b)); Held::keep(new CAnimKnob(r, l, 1, 2, 3, b, CPoint()));
    Held::keep(new CHorizontalSwitch(r, l, 1, 2, 3, 4, b));
    Held::keep(new CVerticalSwitch(r, l, 1, 2, 3, 4, b, CPoint()));
    Held::keep(new COnOffButton(r, l, 1, b)); Held::keep(new COnOffButton(r, l, 1, b, 0));
    Held::keep(new CKickButton(r, l, 1, 2, b)); Held::keep(new CKickButton(r, l, 1, 2, b, CPoint()));
    Held::keep(new CRockerSwitch(r, l, 1, 2, b)); Held::keep(new CRockerSwitch(r, l, 1, 2, b, CPoint(), kVertical));
    Held::keep(new CMovieBitmap(r, l, 1, b)); Held::keep(new CMovieBitmap(r, l, 1, 2, 3, b, CPoint()));
    Held::keep(new CSplashScreen(r, l, 1, b, r)); Held::keep(new CSplashScreen(r, l, 1, view));
    Held::keep(new CParamDisplay(r)); Held::keep(new CParamDisplay(r, b, kNoFrame));
    Held::keep(new CTextLabel(r)); Held::keep(new CTextLabel(r, "text", b, kNoFrame));
    Held::keep(new CTextEdit(r, l, 1)); Held::keep(new CTextEdit(r, l, 1, "text", b, kNoFrame));
    Held::keep(new COptionMenu); Held::keep(new COptionMenu(r, l, 1, b, b, kPopupStyle));
    Held::keep(new CMenuItem("title")); Held::keep(new CMenuItem("title", "k", 0, b, CMenuItem::kTitle));
    Held::keep(new CMenuItem("title", 1));
    Held::keep(new CVSTGUITimer(b)); Held::keep(new CVSTGUITimer(b, 50));
    const CBaseObjectGuard guard(b);
    const CMenuItemList list; const PlatformOptionMenuResult result{nullptr, -1};
    static_cast<void>(list); static_cast<void>(result); static_cast<void>(unknown);
    SAME(r.left, CCoord); SAME(CColor().alpha, uint8_t); SAME(CPoint().h, CCoord);
    SAME(VstKeyCode().character, int32_t); SAME(VstKeyCode().virt, unsigned char);
    SAME(&CView::hitTest, bool (CView::*)(const CPoint&, const CButtonState&));
}

#define EQUAL(...) static_assert(__VA_ARGS__)

EQUAL(kMessageUnknown == 0 && kMessageNotified == 1 && kMouseWheelAxisX == 0);
EQUAL(kMouseWheelAxisY == 1 && kMouseEventNotImplemented == 0 && kMouseEventHandled == 1);
EQUAL(kMouseEventNotHandled == 2 && kMouseDownEventHandledButDontNeedMovedOrUpEvents == 3);
EQUAL(kCursorDefault == 0 && kCursorHSize == 2 && kCursorNotAllowed == 8);
EQUAL(kCursorHand == 9 && kLButton == 2 && kMButton == 4 && kRButton == 8 && kShift == 16);
EQUAL(kControl == 32 && kAlt == 64 && kApple == 128 && kButton4 == 256 && kButton5 == 512);
EQUAL(kDoubleClick == 1024 && kMouseWheelInverted == 2048 && kLeftText == 0);
EQUAL(kCenterText == 1 && kRightText == 2 && kNormalFace == 0 && kBoldFace == 2);
EQUAL(kItalicFace == 4 && kUnderlineFace == 8 && kStrikethroughFace == 16);
EQUAL(kAliasing == 0 && kCopyMode == 0 && kAntiAliasing == 1 && kAntialias == 1);
EQUAL(kDrawStroked == 0 && kDrawFilled == 1 && kDrawFilledAndStroked == 2);
EQUAL(kCircularMode == 0 && kRelativCircularMode == 1 && kLinearMode == 2);
EQUAL(kHorizontal == 1 && kVertical == 2 && kShadowText == 4 && kLeft == 8);
EQUAL(kRight == 0x10 && kTop == 0x20 && kBottom == 0x40 && k3DIn == 0x80);
EQUAL(k3DOut == 0x100 && kPopupStyle == 0x200 && kCheckStyle == 0x400);
EQUAL(kMultipleCheckStyle == 0x401 && kNoTextStyle == 0x800 && kNoDrawStyle == 0x1000);
EQUAL(kDoubleClickStyle == 0x2000 && kNoFrame == 0x4000 && CMenuItem::kDisabled == 1);
EQUAL(CMenuItem::kTitle == 2 && CMenuItem::kChecked == 4 && CMenuItem::kSeparator == 8);
EQUAL(CNewFileSelector::kSelectFile == 0 && CNewFileSelector::kSelectSaveFile == 1);
EQUAL(CNewFileSelector::kSelectDirectory == 2 && VKEY_BACK == 1 && VKEY_TAB == 2);
EQUAL(VKEY_RETURN == 4 && VKEY_ESCAPE == 6 && VKEY_SPACE == 7 && VKEY_END == 9);
EQUAL(VKEY_HOME == 10 && VKEY_LEFT == 11 && VKEY_UP == 12 && VKEY_RIGHT == 13);
EQUAL(VKEY_DOWN == 14 && VKEY_PAGEUP == 15 && VKEY_PAGEDOWN == 16 && VKEY_ENTER == 19);
EQUAL(VKEY_DELETE == 22 && VKEY_NUMPAD0 == 24 && VKEY_F1 == 40 && VKEY_F12 == 51);
EQUAL(VKEY_EQUALS == 57 && MODIFIER_SHIFT == 1 && MODIFIER_ALTERNATE == 2);
EQUAL(MODIFIER_COMMAND == 4 && MODIFIER_CONTROL == 8);

// clang-format on

} // namespace interfacecheck
