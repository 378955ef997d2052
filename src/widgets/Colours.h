// Colours that stay readable in light and in dark palettes.
#pragma once

#include <QColor>

class QPalette;

// The palette's text colour laid over the background of its fields, `share` of it: 0 is the background, 1 the
// text.
QColor textOverBase(const QPalette& palette, double share);

// What can be read but not chosen; a cell that takes no entry.
inline QColor fadedText(const QPalette& palette) {
    return textOverBase(palette, 0.63);
}
inline QColor closedCell(const QPalette& palette) {
    return textOverBase(palette, 0.06);
}
