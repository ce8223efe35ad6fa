#pragma once

#include <QFont>

#include "platform/uikit/UIFont.h"

/// The family in which the application writes. Main thread, after the application object was made,
/// where nothing else is said.
namespace system_font {

/// Reads what fonts the system has, as the toolkit will; done before, loading is quicker. It takes
/// about as long as connecting to the display, beside which it can run. Any thread, at any time.
void readAvailableFonts();

/// Loads the family from the files that its package installs. Where they are missing the toolkit's
/// own family stands in, and one line on standard error says so.
void load();

/// The toolkit's font for one of the frameworks' fonts, sized in points of the page. Texts are
/// measured and drawn with this one font, unhinted, so that both agree at every scale.
QFont font(const UIFont& font);

}  // namespace system_font
