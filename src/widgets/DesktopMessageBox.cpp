#include "widgets/DesktopMessageBox.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>

namespace {

constexpr int titleExtra = 140; // pixels of a window's title that are not text: icon and buttons

// A short text must not cut the title, which tells what the message is about.
void makeRoomForTitle(QMessageBox& box) {
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + titleExtra;
    auto* grid = static_cast<QGridLayout*>(box.layout());
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

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
    makeRoomForTitle(box);
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
