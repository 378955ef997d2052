// What the controls of all windows have in common.
#pragma once

#include <QStyledItemDelegate>

class QListWidget;
class QWidget;

// Entries of a list: one line each, however many their texts have, and a tool tip has what is cut.
class NameDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

// Pixels from the list's edge to the texts of its entries: where a heading above them begins.
int entryMargin(const QListWidget& list);

// From now on
// - the text fields of `window` take no control characters: of what is pasted the first line that is not
// empty is
//   kept, a tab becomes a blank;
// - lists of names, which are as wide as the window has room for, open no wider than that, and show in a tool
// tip
//   a name that they cut; a list with a NameDelegate of its own keeps it.
void settleControls(QWidget& window);
