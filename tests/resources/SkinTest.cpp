// The skin as it is embedded: what a musician has to be able to read and to tell apart, measured on
// the pixels that he sees.

#include "parameters/ParameterCatalogue.h"
#include "tests/resources/SkinPictures.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

#include <map>
#include <set>
#include <string>

namespace pedl::skin {
namespace {

/// Frames of the kinds whose strips hold more than one; the other kinds' have one.
int framesOf(const ControlRow& row) {
    switch (row.kind) {
    case ControlKind::LabelledKnob:
    case ControlKind::Knob:
    case ControlKind::Encoder:
        return 101;
    case ControlKind::Rocker:
        return 5;
    case ControlKind::RelativeMix:
        return 4;
    case ControlKind::FileButton:
    case ControlKind::KickButton:
    case ControlKind::ToggleButton:
    case ControlKind::CyclingSwitch:
    case ControlKind::LabelledSwitch:
        return 3;
    case ControlKind::OnOffButton:
    case ControlKind::HoldButton:
    case ControlKind::ActivityLamp:
        return 2;
    default:
        return 1;
    }
}

TEST(Skin, EveryPictureFillsItsControl) {
    // Strips of other sizes than their control: the glyphs, the needle, the list's rows.
    const std::map<std::int32_t, std::array<int, 3>> other{
        {12140, {42, 28, 7}},   {12141, {42, 28, 7}},  {12139, {42, 28, 6}},  {12143, {17, 18, 1}},
        {12148, {27, 41, 13}},  {12151, {27, 41, 13}}, {12152, {27, 41, 13}}, {12153, {27, 41, 13}},
        {12200, {521, 544, 1}}, {19979, {15, 16, 3}},  {19990, {39, 10, 3}},  {19994, {35, 10, 3}}};
    std::vector<ControlRow> rows(kPanelRows.begin(), kPanelRows.end());
    rows.insert(rows.end(), kBarRows.begin(), kBarRows.end());
    for (const ControlRow& row : rows)
        for (const std::int32_t id : row.bitmaps)
            for (const int scale : {1, 2}) {
                if (id == 0)
                    continue;
                SCOPED_TRACE(id);
                const EmbeddedPicture picture(id, scale);
                ASSERT_TRUE(picture.exists());
                const auto found = other.find(id);
                const std::array<int, 3> size =
                    found != other.end()
                        ? found->second
                        : std::array{static_cast<int>(row.place.width()),
                                     static_cast<int>(row.place.height()), framesOf(row)};
                EXPECT_EQ(picture.width(), size[0] * scale);
                EXPECT_EQ(picture.height(), size[1] * scale);
                // A strip's height alone counts: one frame more of a lesser height is the same.
                EXPECT_EQ(picture.height() * picture.frames(), size[1] * size[2] * scale);
            }
    for (const std::int32_t id : {12100, 12156, 12157, 19980})
        EXPECT_TRUE(EmbeddedPicture(id, 1).exists() && EmbeddedPicture(id, 2).exists()) << id;
}

/// A legend's place: the middle of its text, its baseline, its letters' height and how many.
struct Legend {
    const char* text;
    double x, baseline, cap;
};

// clang-format off
constexpr Legend kLegends[]{
    {"LFO RATE", 105, 35, 8},     {"CUT-OFF", 417, 35, 8},       {"LFO", 33, 106, 7},
    {"FILTER", 481, 106, 7},      {"ALT: TEMPO", 157, 104, 5},   {"SHIFT: FINE", 363, 104, 5},
    {"SMOOTH", 52, 124, 6},       {"WAVE", 92, 124, 6},          {"WIDTH", 131, 124, 6},
    {"TYPE", 355, 124, 6},        {"RESO", 388, 124, 6},         {"SLOPE", 428.5, 124, 6},
    {"SAT", 467, 124, 6},         {"LFO", 33, 236, 7},           {"FOLLOWER", 465, 236, 7},
    {"SPREAD", 55, 253, 6},       {"ATTACK", 299, 253, 6},       {"RELEASE", 398, 253, 6},
    {"RANGE", 455, 253, 6},       {"EXTEND", 356, 265, 5},       {"GAIN", 55, 330, 6},
    {"LINK", 85.5, 411, 5},       {"INPUT", 52, 411, 7},         {"OUTPUT", 391, 411, 7},
    {"PRESET/BANK", 440, 410, 5}, {"FREEZE", 132, 429, 7},       {"BYPASS", 463, 429, 7},
    {"ROUTING", 292.5, 429, 6},   {"STEREO", 217.5, 470, 5},     {"MULTIMODE", 205, 479, 5},
    {"LEARN", 339, 516, 5},       {"FORGET", 373, 516, 5},       {"RESET", 407, 516, 5},
    {"MIDI IN", 465, 520, 5},     {"MANUAL", 479, 538, 5},      {"deg", 79, 253, 6},
    {"ms", 324, 253, 6},{"dB", 80, 330, 6},
    {"LIM+SAT", 295, 487, 5},     {"MIX", 384, 483, 5},         {"NOTE", 255, 98, 5},
    {"BPM", 282, 98, 5},
};
// clang-format on

TEST(Skin, LegendsStandOutFromTheirGround) {
    constexpr double kLeast = 4.5;
    for (const int scale : {1, 2}) {
        const EmbeddedPicture face(kFaceBitmap, scale);
        for (const Legend& legend : kLegends) {
            // Within the text, so that nothing else is measured.
            const double half =
                0.3 * legend.cap * static_cast<double>(std::string(legend.text).size());
            std::vector<double> seen;
            for (int y = static_cast<int>((legend.baseline - legend.cap) * scale);
                 y < legend.baseline * scale; ++y)
                for (int x = static_cast<int>((legend.x - half) * scale);
                     x < (legend.x + half) * scale; ++x)
                    seen.push_back(luminance(face.pixel(0, x, y)));
            std::sort(seen.begin(), seen.end());
            // Dark on light or light on dark: the ink is at one end, the ground is most of the
            // rest.
            const auto at = [&](double part) {
                return seen[static_cast<std::size_t>(part * static_cast<double>(seen.size() - 1))];
            };
            EXPECT_GE(std::max(contrast(at(0.01), at(0.8)), contrast(at(0.99), at(0.2))), kLeast)
                << legend.text << " at scale " << scale;
        }
    }
}

/// The controls that are never seen together or lie over others on purpose.
bool isOverlaid(ControlKind kind) {
    return kind == ControlKind::Overlay || kind == ControlKind::About ||
           kind == ControlKind::ClickArea || kind == ControlKind::Counter ||
           kind == ControlKind::SyncDisplay || kind == ControlKind::DotCounter;
}

TEST(Skin, NoPixelIsPaintedByTwoControls) {
    constexpr std::uint32_t kSeenAlpha = 24;
    for (const int scale : {1, 2}) {
        const int width = static_cast<int>(kFaceWidth) * scale;
        const int height = static_cast<int>(kFaceHeight) * scale;
        std::vector<std::int32_t> painters(static_cast<std::size_t>(width * height), -1);
        std::set<std::pair<std::int32_t, std::int32_t>> overlaps;
        for (const ControlRow& row : kPanelRows) {
            if (isOverlaid(row.kind) || row.bitmaps[0] == 0)
                continue;
            const bool isSlider = row.kind == ControlKind::CutoffSlider; // its groove stands for it
            const EmbeddedPicture picture(row.bitmaps[isSlider ? 1 : 0], scale);
            const int left = static_cast<int>(row.place.left) * scale;
            const int top = static_cast<int>(row.place.top) * scale;
            for (int frame = 0; frame < picture.frames(); ++frame)
                for (int y = 0; y < picture.height(); ++y)
                    for (int x = 0; x < picture.width(); ++x) {
                        if (picture.pixel(frame, x, y) >> 24 <= kSeenAlpha)
                            continue;
                        std::int32_t& painter =
                            painters[static_cast<std::size_t>((top + y) * width + left + x)];
                        if (painter >= 0 && painter != row.tag)
                            overlaps.insert({painter, row.tag});
                        painter = row.tag;
                    }
        }
        for (const auto& [first, second] : overlaps)
            ADD_FAILURE() << "tags " << first << " and " << second << " at scale " << scale;
    }
}

TEST(Skin, LitAndUnlitDifferInBrightness) {
    struct Pair {
        std::int32_t off, on;
        int offFrame, onFrame;
        double ratio; // of what is seen from afar
    };
    std::vector<Pair> pairs{
        {12160, 12161, 0, 0, 2.0}, {12160, 12162, 0, 0, 2.0}, {12160, 12163, 0, 0, 2.0},
        {19975, 19975, 0, 1, 2.0}, {19998, 19998, 0, 2, 1.5}, {19979, 19979, 0, 2, 1.5},
        {12308, 12308, 1, 0, 2.0}, {12117, 12117, 1, 0, 2.0}, {12110, 12110, 0, 1, 1.2},
        {12111, 12111, 0, 1, 1.2},
    };
    for (const std::int32_t id :
         {12287, 12290, 12291, 12292, 12293, 12294, 12295, 12296, 12297, 12301, 19001})
        pairs.push_back({id, id, 0, 1, 2.0});
    for (const int scale : {1, 2})
        for (const Pair& pair : pairs) {
            const double off = meanLuminance(EmbeddedPicture(pair.off, scale), pair.offFrame);
            const double on = meanLuminance(EmbeddedPicture(pair.on, scale), pair.onFrame);
            EXPECT_GE(contrast(on, off), pair.ratio) << pair.on << " at scale " << scale;
        }
}

TEST(Skin, TheDisplayLightsTheWordForWhatItShows) {
    struct Shown {
        std::int32_t strip;
        std::vector<int> frames; // one over the other in the middle cell, where both words are
        bool hertz, note;
    };
    const Shown all[]{{12153, {8}, true, false},      {12153, {10}, false, false},
                      {12152, {12}, false, true},     {12152, {10, 8, 11}, true, false},
                      {12151, {10, 8}, false, false}, {12148, {10, 8}, false, false}};
    for (const int scale : {1, 2}) {
        const EmbeddedPicture face(kFaceBitmap, scale);
        for (const Shown& shown : all) {
            const EmbeddedPicture strip(shown.strip, scale);
            const auto brightest = [&](int from, int to) {
                double most = 0;
                for (int y = 35 * scale; y < 40 * scale; ++y)
                    for (int x = from * scale; x < to * scale; ++x) {
                        std::uint32_t pixel = face.pixel(0, x + 247 * scale, y + 58 * scale);
                        for (const int frame : shown.frames)
                            pixel = over(strip.pixel(frame, x, y), pixel);
                        most = std::max(most, luminance(pixel));
                    }
                return most;
            };
            const double note = brightest(0, 17), hertz = brightest(17, 27);
            EXPECT_EQ(shown.hertz, hertz > 0.5) << shown.strip << ' ' << scale << ' ' << hertz;
            EXPECT_EQ(shown.note, note > 0.5) << shown.strip << ' ' << scale << ' ' << note;
            EXPECT_TRUE(shown.hertz == shown.note ? contrast(note, hertz) < 1.3
                                                  : contrast(note, hertz) > 2)
                << shown.strip << ' ' << scale << ' ' << note << ' ' << hertz;
        }
    }
}

TEST(Skin, APressedFootSwitchIsSeenFromAfar) {
    for (const int scale : {1, 2})
        for (const std::int32_t id : {12110, 12111}) {
            const EmbeddedPicture picture(id, scale);
            int painted = 0, changed = 0;
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x) {
                    const std::uint32_t up = picture.pixel(0, x, y), down = picture.pixel(1, x, y);
                    painted += up >> 24 > 24;
                    changed += contrast(luminance(up), luminance(down)) > 1.5;
                }
            EXPECT_GE(changed * 8, painted) << id << " at scale " << scale;
        }
}

/// Where a control writes its value, as wide as its widest text.
struct LabelGround {
    std::int32_t tag;
    double left, right, top, bottom;
};

std::vector<LabelGround> labelGrounds() {
    VSTGUI::PixmanSurface surface(1, 1, 1);
    VSTGUI::CDrawContext* const context = VSTGUI::createPixmanContext(surface);
    context->setFont(VSTGUI::kNormalFontSmall);
    std::vector<LabelGround> grounds;
    for (const ControlRow& row : kPanelRows) {
        const bool isLabelled =
            row.kind == ControlKind::LabelledKnob || row.kind == ControlKind::LabelledSwitch;
        if (!isLabelled && row.kind != ControlKind::ValueDisplay)
            continue;
        double widest = 0;
        for (int step = 0; step <= 200; ++step)
            widest = std::max(
                widest,
                context->getStringWidth(
                    std::string(parameterText(row.tag, static_cast<float>(step) / 200.0F).view())
                        .c_str()));
        const double shift = row.kind == ControlKind::LabelledSwitch ? 0 : row.label.shift + 1;
        const double middle = (row.place.left + row.place.right) / 2 + shift;
        const double top = row.place.top + row.label.top + 1;
        grounds.push_back({row.tag, middle - widest / 2, middle + widest / 2, top + 2, top + 11});
    }
    context->forget();
    return grounds;
}

TEST(Skin, ValuesStandOnCalmGround) {
    // The grain of the paint is calm, print and the edge of a shadow are not.
    constexpr double kCalm = 1.45; // contrast of the brightest and the darkest twentieth
    for (const int scale : {1, 2}) {
        const EmbeddedPicture face(kFaceBitmap, scale);
        for (const LabelGround& ground : labelGrounds()) {
            std::vector<double> seen;
            for (int y = static_cast<int>(ground.top * scale); y < ground.bottom * scale; ++y)
                for (int x = static_cast<int>(ground.left * scale); x < ground.right * scale; ++x)
                    seen.push_back(luminance(face.pixel(0, x, y)));
            std::sort(seen.begin(), seen.end());
            EXPECT_LE(contrast(seen[seen.size() / 20], seen[seen.size() * 19 / 20]), kCalm)
                << "tag " << ground.tag << " at scale " << scale;
        }
    }
}

TEST(Skin, NoValueReachesAnotherControlOrValue) {
    const std::vector<LabelGround> grounds = labelGrounds();
    const auto meet = [](const LabelGround& a, const LabelGround& b) {
        return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
    };
    for (const LabelGround& ground : grounds)
        for (const LabelGround& other : grounds)
            EXPECT_FALSE(ground.tag < other.tag && meet(ground, other))
                << ground.tag << ' ' << other.tag;
    for (const ControlRow& row : kPanelRows) {
        if (row.bitmaps[0] == 0 || isOverlaid(row.kind) || row.kind == ControlKind::CutoffSlider)
            continue;
        const EmbeddedPicture picture(row.bitmaps[0], 1);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const double left = row.place.left + x, top = row.place.top + y;
                const LabelGround pixel{row.tag, left, left + 1, top, top + 1};
                for (const LabelGround& ground : grounds)
                    EXPECT_FALSE(ground.tag != row.tag && picture.pixel(0, x, y) >> 24 > 24 &&
                                 meet(ground, pixel))
                        << "value of " << ground.tag << " on control " << row.tag;
            }
    }
}

} // namespace
} // namespace pedl::skin
