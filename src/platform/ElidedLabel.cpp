#include "platform/ElidedLabel.h"

#include <QStylePainter>

void ElidedLabel::setWholeText(const QString& text) {
    setText(text);
    setToolTip(text.toHtmlEscaped()); // a tool tip would take a name that looks like markup for markup
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.drawItemText(
        contentsRect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()), foregroundRole());
}
