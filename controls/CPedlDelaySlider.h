#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"

namespace pedl {

/// A handle that slides along a line, with an overlay drawn over it and a scale between value and
/// place: the handle stands at `valueScale` x value and stops at its end.
///
/// Control or a double click goes to the default. With `freeClick` or Alt a click anywhere takes
/// the handle there, otherwise the handle has to be met. Shift makes a drag `zoomFactor` times
/// finer, and a step of the wheel or of a key ten times. It opens no edits of its own; see
/// `CpedlRadioSlider`. The owner may set the public fields. Thread: the editor's.
class CPedlDelaySlider : public BalancedEdits<VSTGUI::CControl> {
public:
    /// @param minPos  first and last place of the handle in the parent's space, pixels
    /// @param style   slider bits of `CControlEnum`
    CPedlDelaySlider(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                     int32_t minPos, int32_t maxPos, VSTGUI::CBitmap* handle,
                     VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset, int32_t style);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;

    virtual void setDrawTransparentHandle(bool state) { drawTransparentHandle = state; }
    virtual bool getDrawTransparentHandle() { return drawTransparentHandle; }
    virtual void setFreeClick(bool state) { freeClick = state; }
    virtual bool getFreeClick() { return freeClick; }
    virtual void setOffsetHandle(const VSTGUI::CPoint& place);
    virtual VSTGUI::CPoint getOffsetHandle() { return offsetHandle; }
    virtual void setOffset(const VSTGUI::CPoint& place) { offset = place; }
    virtual VSTGUI::CPoint getOffset() { return offset; }
    virtual void setStyle(int32_t bits) { style = bits; }
    virtual int32_t getStyle() { return style; }
    virtual void setHandle(VSTGUI::CBitmap* bitmap);
    virtual VSTGUI::CBitmap* getHandle() { return handle; }
    virtual void setZoomFactor(float factor) { zoomFactor = factor; }
    virtual float getZoomFactor() { return zoomFactor; }
    virtual void setOverlay(VSTGUI::CBitmap* bitmap);
    virtual bool isActive() { return active; }
    /// The way of the wheel's turn that is being told, 1 or -1; 0 the next time.
    virtual int32_t takeWheelDirection();
    virtual void setValueScale(float scale) { valueScale = scale; }

    VSTGUI::CPoint offset;
    VSTGUI::CPoint offsetHandle;
    Counted<VSTGUI::CBitmap> handle;
    int32_t style;
    double rangeHandle;  // pixels that the handle travels
    double minTmp = 0.0; // travel limits of the handle, from the view's edge
    double maxTmp = 0.0;
    double minPos; // from the view's edge
    double widthControl;
    double heightControl;
    float zoomFactor = 10.0F;
    bool drawTransparentHandle = true;
    bool freeClick = true;
    bool active = false; // the mouse or the wheel acts
    int32_t wheelDirection = 0;
    double delta = 0.0;             // from the handle's start to where it was grabbed
    float oldVal = 0.0F;            // where the fine part of a drag began
    VSTGUI::CButtonState oldButton; // of the last event of a drag, 0 outside
    Counted<VSTGUI::CBitmap> overlay;
    float valueScale = 1.0F;
    bool jumped = false; // the drag began with a jump to the mouse
    CLASS_METHODS(CPedlDelaySlider, CControl)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CPedlDelaySlider() override = default;

    // What the radio slider does in its own way

    /// From the view's edge to the handle at its first place.
    [[nodiscard]] virtual double firstPlace() const;
    [[nodiscard]] virtual bool isInverted() const;
    [[nodiscard]] virtual VSTGUI::CBitmap* shownOverlay() const { return overlay; }
    /// Whether drags, steps and keys are told as edits.
    [[nodiscard]] virtual bool hasEdits() const { return false; }

    [[nodiscard]] bool isHorizontal() const { return (style & VSTGUI::kHorizontal) != 0; }
    /// The value that an arrow key goes to.
    [[nodiscard]] virtual float valueAfterKey(bool isUpwards, bool isFine) const;
    /// Moves to a normalised value and tells it where something moved, as an edit of its own. The
    /// control stays dirty until the next idle.
    void moveInOneEdit(float normalised);

private:
    [[nodiscard]] double along(const VSTGUI::CPoint& point) const;
    [[nodiscard]] double handleLength() const;
    [[nodiscard]] double handlePlace() const;
    [[nodiscard]] VSTGUI::CRect handleRect() const;
    [[nodiscard]] bool stepsBackwards() const;
    VSTGUI::CMouseEventResult goToDefault();
    void moveTo(float normalised);
};

} // namespace pedl
