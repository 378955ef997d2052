#include "widgets/ElidedLabel.h"

#include <QStylePainter>
#include <algorithm>

#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

QString plainToolTip(const QString& text) {
    return text.isEmpty() ? QString() : u"<p>"_s + text.toHtmlEscaped() + u"</p>"_s;
}

void ElidedLabel::setWholeText(const QString& text) {
    setText(text);
    setToolTip(plainToolTip(text));
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0,
            std::max(QLabel::minimumSizeHint().height(), fontMetrics().height())}; // empty, it keeps its room
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                         fontMetrics().elidedText(joinedLines(text()), mode_, contentsRect().width()),
                         foregroundRole());
}
