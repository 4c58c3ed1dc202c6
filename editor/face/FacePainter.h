#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "editor/ControlLayout.h"
#include "editor/face/FaceState.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

namespace pedl::skin {

/// Draws the face as the editor shows it: background, and every control of the layout with the
/// frame and the label that its value has. With the bitmaps of the registered resources.
class FacePainter {
public:
    FacePainter(VSTGUI::CDrawContext& context, const FaceState& state);

    void drawFace();

private:
    void drawPanelRow(const ControlRow& row);
    void drawBarRow(const ControlRow& row);

    void drawFrame(const ControlRow& row, std::size_t bitmap, int frame, float alpha = 1.0F);
    void drawStep(const ControlRow& row, float value, int frames);
    void drawKnob(const ControlRow& row, float value);
    void drawSlider(const ControlRow& row);
    void drawLamp(const ControlRow& row);
    void drawMeter(const ControlRow& row);
    void drawDigits(const ControlRow& row);
    void drawWaves(const ControlRow& row);
    void drawKnobLabel(const ControlRow& row);
    void drawSwitchLabel(const ControlRow& row);
    void drawText(const std::string& text, const VSTGUI::CRect& rect, const VSTGUI::CColor& colour);

    [[nodiscard]] bool isShown(const ControlRow& row) const;
    [[nodiscard]] std::string labelOf(const ControlRow& row) const;
    [[nodiscard]] float valueOf(const ControlRow& row) const;
    [[nodiscard]] float lampOf(const ControlRow& row) const;
    VSTGUI::CBitmap& bitmap(std::int32_t id);

    VSTGUI::CDrawContext& context_;
    const FaceState& state_;
    std::map<std::int32_t, std::unique_ptr<VSTGUI::CBitmap>> bitmaps_;
};

/// The whole face in a picture of its own.
std::unique_ptr<VSTGUI::PixmanSurface> drawFace(const FaceState& state, int scale);

} // namespace pedl::skin
