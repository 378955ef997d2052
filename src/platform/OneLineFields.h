// Text fields of one line keep to one line, whatever is pasted into them.
#pragma once

class QWidget;

// From now on the text fields of `window` take no control characters: of what is pasted the first line that
// is not empty is kept, a tab becomes a blank.
void keepOneLine(QWidget* window);
