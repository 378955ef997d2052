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

void ElidedLabel::setSentence(const QStringList& names, const Sentence& sentence) {
    names_ = names;
    withNames_ = sentence;
    sentence_ = sentence(names);
    setWholeText(sentence_);
}

void ElidedLabel::setWrapped(bool wrapped) {
    isWrapped_ = wrapped;
    updateGeometry();
    update();
}

QString ElidedLabel::shownText() const {
    if (isWrapped_) return joinedLines(text());
    const int room = contentsRect().width();
    const QFontMetrics font = fontMetrics();
    const auto withNames = [&](int width) {
        QStringList cut;
        for (const auto& name : names_) cut << font.elidedText(joinedLines(name), Qt::ElideRight, width);
        return withNames_(cut);
    };
    QString shown = joinedLines(text());
    if (!names_.isEmpty() && text() == sentence_ && font.horizontalAdvance(shown) > room) {
        int width = 0; // the widest that fits, between it and `tooWide`
        for (int tooWide = room; tooWide - width > 1;) {
            const int middle = (width + tooWide) / 2;
            (font.horizontalAdvance(withNames(middle)) <= room ? width : tooWide) = middle;
        }
        shown = withNames(width);
    }
    return font.elidedText(shown, mode_, room);
}

QSize ElidedLabel::minimumSizeHint() const {
    const int line = std::max(QLabel::minimumSizeHint().height(), fontMetrics().height()); // also when empty
    if (!isWrapped_) return {0, line};
    const QMargins margins = contentsMargins();
    const int lines = fontMetrics()
                          .boundingRect(QRect(0, 0, contentsRect().width(), QWIDGETSIZE_MAX),
                                        Qt::TextWrapAnywhere, shownText())
                          .height();
    return {0, std::max(line, lines + margins.top() + margins.bottom())};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    const int flags = static_cast<int>(alignment()) | (isWrapped_ ? Qt::TextWrapAnywhere : 0);
    painter.drawItemText(contentsRect(), flags, palette(), isEnabled(), shownText(), foregroundRole());
}
