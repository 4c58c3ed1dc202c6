#pragma once

namespace VSTGUI {

/// Window pixels for a logical one, as the user wants them: `ZMT_EDITOR_SCALE` in the environment,
/// 0.5 to 4. Whatever else stands there, or nothing, is 1.
double displayScaleFactor();

} // namespace VSTGUI
