#pragma once

#include <QString>

namespace pingwell {

/// What all open windows show now, for automated tests: a JSON array, in tree order, of the visible elements that carry
/// an identifier (their object name), each {"id","role","name","value","enabled","checked","x","y","width","height",
/// "window"}. The name is what a screen reader reads; the value is the accessibility value or the text of a field; the
/// rectangle is in the screen's own pixels. Open menus and sheets are among them. Main thread.
[[nodiscard]] QString accessibilitySnapshot();

} // namespace pingwell
