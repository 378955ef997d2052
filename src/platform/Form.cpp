#include "platform/Form.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>

namespace {

constexpr int twipsPerPixel = 15; // 1440 to the inch at 96 pixels to the inch

} // namespace

Form::Form(const QString& name) : name_(name) {
    setObjectName(name);
}

void Form::unload() {
    unloading_ = true;
    close();
}

void Form::centre() {
    adjustSize();
    const QSize available = screen()->size();
    move((available.width() - width()) / 2, (available.height() - height()) / 2);
}

void Form::position(int leftTwips, int topTwips) {
    move(leftTwips / twipsPerPixel, topTwips / twipsPerPixel);
}

void Form::closeEvent(QCloseEvent* event) {
    if (!unloading_) frameClosed();
    event->setAccepted(unloading_);
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QWidget::keyPressEvent(event);
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
    } else {
        focusNextChild();
    }
}
