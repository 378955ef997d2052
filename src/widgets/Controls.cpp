#include "widgets/Controls.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QToolTip>
#include <QValidator>
#include <algorithm>

#include "text/TextConversion.h"
#include "widgets/ElidedLabel.h"

namespace {

// Sees every text that a field takes, however it came: typed, pasted, dropped, set by the program.
class OneLine : public QValidator {
  public:
    explicit OneLine(QLineEdit* field) : QValidator(field) {
        connect(field, &QLineEdit::selectionChanged, this,
                [this, field] { selected_ = field->selectedText().size(); });
    }

    State validate(QString& text, int& cursor) const override {
        if (hasControlCharacters(text)) {
            const auto ahead = keptAhead(text, cursor);
            const QString kept = text.first(ahead) + firstLine(text.sliced(ahead, cursor - ahead));
            text = kept + firstLine(text.sliced(cursor));
            cursor = static_cast<int>(kept.size());
        }
        before_ = text;
        return Acceptable;
    }

  private:
    // How much of the text stood there before what came in. The cursor stands behind that, and it has taken
    // the place of the selection. Nothing when the program has set the whole text.
    qsizetype keptAhead(const QString& text, int cursor) const {
        const auto ahead = before_.size() - selected_ - (text.size() - cursor);
        return ahead > 0 && ahead <= cursor && text.startsWith(before_.first(ahead)) ? ahead : 0;
    }

    mutable QString before_; // free of control characters
    qsizetype selected_ = 0;
};

} // namespace

bool NameDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    const bool isCut = sizeHint(option, index).width() > view->viewport()->width();
    if (event->type() != QEvent::ToolTip || !isCut || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), plainToolTip(index.data().toString()), view);
    return true;
}

void NameDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = joinedLines(option->text);
}

int entryMargin(const QListWidget& list) {
    return list.frameWidth() + list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
}

void settleControls(QWidget& window) {
    for (auto* field : window.findChildren<QLineEdit*>())
        if (field->validator() == nullptr) field->setValidator(new OneLine(field));
    for (auto* list : window.findChildren<QListWidget*>())
        if (dynamic_cast<NameDelegate*>(list->itemDelegate()) == nullptr)
            list->setItemDelegate(new NameDelegate(list));
    for (auto* box : window.findChildren<QComboBox*>()) {
        if (box->sizeAdjustPolicy() != QComboBox::AdjustToMinimumContentsLengthWithIcon) continue;
        box->setItemDelegate(new NameDelegate(box));
        // Otherwise some styles open the list like a menu: as wide as the longest name, as high as the
        // screen.
        box->setStyleSheet(QStringLiteral("combobox-popup: 0;"));
    }
}
