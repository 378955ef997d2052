#include "platform/MessageBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QTextStream>

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

MessagePresenter consolePresenter() {
    return [](const QString& text, const QString& title, MessageStyle style) {
        QTextStream(stderr) << title << ": " << text << '\n';
        return isQuestion(style) ? MessageAnswer::Yes : MessageAnswer::Ok;
    };
}
