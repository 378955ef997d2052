#include "platform/Controls.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QValidator>
#include <algorithm>

#include "platform/ElidedLabel.h"
#include "platform/TextConversion.h"

namespace {

// Sees every text that a field takes, however it came: typed, pasted, dropped, set by the program.
class OneLine : public QValidator {
  public:
    using QValidator::QValidator;

    // The cursor stands behind what came in: what follows it was there before and stays.
    State validate(QString& text, int& cursor) const override {
        if (hasControlCharacters(text)) {
            const QString behind = firstLine(text.sliced(cursor));
            const auto line = std::ranges::find_if(text, isControl) - text.begin();
            const QString ahead = text.first(std::min<qsizetype>(line, cursor));
            const QString kept = before_ == ahead + behind // what came in begins with an empty line
                                     ? ahead + firstLine(text.first(cursor).sliced(ahead.size()))
                                     : firstLine(text.first(cursor));
            text = kept + behind;
            cursor = static_cast<int>(kept.size());
        }
        before_ = text;
        return Acceptable;
    }

  private:
    mutable QString before_; // free of control characters
};

class NameDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const bool isCut = sizeHint(option, index).width() > view->viewport()->width();
        if (event->type() != QEvent::ToolTip || !isCut || index.data(Qt::ToolTipRole).isValid())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), plainToolTip(index.data().toString()), view);
        return true;
    }
};

} // namespace

void settleControls(QWidget& window) {
    for (auto* field : window.findChildren<QLineEdit*>())
        if (field->validator() == nullptr) field->setValidator(new OneLine(field));
    for (auto* list : window.findChildren<QListWidget*>()) list->setItemDelegate(new NameDelegate(list));
    for (auto* box : window.findChildren<QComboBox*>()) {
        if (box->sizeAdjustPolicy() != QComboBox::AdjustToMinimumContentsLengthWithIcon) continue;
        box->setItemDelegate(new NameDelegate(box));
        // Otherwise some styles open the list like a menu: as wide as the longest name, as high as the
        // screen.
        box->setStyleSheet(QStringLiteral("combobox-popup: 0;"));
    }
}
