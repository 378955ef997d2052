// What the controls of all windows have in common.
#pragma once

class QWidget;

// From now on
// - the text fields of `window` take no control characters: of what is pasted the first line that is not
// empty is
//   kept, a tab becomes a blank;
// - lists of names, which are as wide as the window has room for, open no wider than that, and show in a tool
// tip
//   a name that they cut.
void settleControls(QWidget& window);
