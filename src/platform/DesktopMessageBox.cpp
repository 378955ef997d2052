#include "platform/DesktopMessageBox.h"

#include <QApplication>
#include <QMessageBox>

namespace {

MessageAnswer showBox(const QString& text, const QString& title, MessageStyle style) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText); // a name may look like markup
    box.setText(text);
    if (style == MessageStyle::Exclamation) box.setIcon(QMessageBox::Warning);
    if (isQuestion(style)) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(style == MessageStyle::Discard ? QMessageBox::No : QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    }
    switch (box.exec()) {
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        default:
            return MessageAnswer::Ok;
    }
}

} // namespace

MessagePresenter desktopPresenter() {
    return showBox;
}
