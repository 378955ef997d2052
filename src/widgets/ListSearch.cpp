#include "widgets/ListSearch.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>

#include "text/TextConversion.h"

namespace {

constexpr int searchTextRole = Qt::UserRole;

QString searchText(const QString& text) {
    return toHalfWidth(text).toLower();
}

} // namespace

ListSearch::ListSearch(QLineEdit* field, QListWidget* list) : QObject(field), field_(field), list_(list) {
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &ListSearch::apply);
}

void ListSearch::apply() {
    const QString wanted = searchText(field_->text().trimmed());
    int first = -1;
    for (int row = 0; row < list_->count(); ++row) {
        auto* item = list_->item(row);
        if (!wanted.isEmpty() && item->data(searchTextRole).isNull())
            item->setData(searchTextRole, searchText(item->text()));
        const bool found = wanted.isEmpty() || item->data(searchTextRole).toString().contains(wanted);
        item->setHidden(!found);
        if (found && first < 0) first = row;
    }
    list_->setCurrentRow(wanted.isEmpty() ? -1 : first); // nothing is chosen that was not looked for
}

bool ListSearch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Down)
        return QObject::eventFilter(watched, event);
    list_->setFocus();
    return true;
}
