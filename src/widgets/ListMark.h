// The mark of list entries that are done.
#pragma once

#include <QIcon>

class QWidget;

// A tick in the list's text colour, or an empty picture as large: the texts of both stand under each other.
QIcon listMark(const QWidget& list, bool done);
