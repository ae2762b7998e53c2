#pragma once

namespace quillon
{

/// Lets the program start without the fonts of the system: to list a few thousand of them, and to search all for each size of text,
/// takes longer than everything else up to the first window. Until admitSystemFonts there are the program's own faces only.
/// Before the application object is made. Nothing where another library looks for fonts.
void postponeSystemFonts();

/// Ends that: from here on signs that the program's faces lack are found in those of the system. GUI thread; the caller has all
/// fonts looked up anew.
void admitSystemFonts();

} // namespace quillon
