// Fonts of screens and pages.
#pragma once

// Where "ＭＳ ゴシック" and "ＭＳ Ｐゴシック" are not installed, their place is taken by fonts of the same
// widths. Needs a QGuiApplication.
void installFontSubstitutions();
