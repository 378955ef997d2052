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

QString ElidedLabel::shownText() const {
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
    return {0,
            std::max(QLabel::minimumSizeHint().height(), fontMetrics().height())}; // empty, it keeps its room
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shownText(),
                         foregroundRole());
}
