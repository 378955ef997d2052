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

    State validate(QString& text, int& cursor) const override {
        if (hasControlCharacters(text)) {
            // Only what came in is cut: the text around it stays.
            const auto [end, same] = std::ranges::mismatch(text, before_);
            const auto begin = end - text.begin();
            const auto most = std::min(text.size(), before_.size()) - begin;
            qsizetype behind = 0;
            while (behind < most && text[text.size() - 1 - behind] == before_[before_.size() - 1 - behind])
                ++behind;
            const QString added = firstLine(text.mid(begin, text.size() - begin - behind));
            text = text.first(begin) + added + text.last(behind);
            cursor = static_cast<int>(begin + added.size());
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
