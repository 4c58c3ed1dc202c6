#pragma once

namespace pedl {

/// Where a plug-in has brought Xlib into the process: an error of a request no longer ends the
/// process, as Xlib by itself does, and a lost server ends it with one line instead of the
/// library's own. Editors on XCB need none of it.
void tameXlib();

} // namespace pedl
