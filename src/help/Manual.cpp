#include "help/Manual.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int widestPicture = 720; // pixels
constexpr int cellPadding = 5;
constexpr int pageMargin = 18;
constexpr int beforeHeading = 22;
constexpr int betweenParagraphs = 8;

// "4.3 要因登録、課題登録" without its number, one word for each screen.
QStringList wordsOf(const QString& heading) {
    return heading.section(u' ', heading.at(0).isDigit() ? 1 : 0).split(u'、');
}

} // namespace

QString manualFile() {
    const QDir program(QCoreApplication::applicationDirPath());
    for (const auto& place : {u"docs/manual.md"_s, u"../share/hollin/docs/manual.md"_s})
        if (program.exists(place)) return QDir::cleanPath(program.absoluteFilePath(place));
    return program.absoluteFilePath(u"docs/manual.md"_s);
}

Manual::Manual(const QString& file) {
    setOpenExternalLinks(true);
    if (!QFileInfo(file).isFile()) return;
    setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    findHeadings();
    spaceParagraphs();
    drawTables();
}

// The toolkit sets Markdown solid.
void Manual::spaceParagraphs() {
    document()->setDocumentMargin(pageMargin);
    for (auto block = document()->begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        if (cursor.currentTable() != nullptr) continue;
        QTextBlockFormat format;
        format.setTopMargin(block.blockFormat().headingLevel() > 0 ? beforeHeading : 0);
        format.setBottomMargin(block.textList() != nullptr ? 2 : betweenParagraphs);
        cursor.mergeBlockFormat(format);
    }
}

void Manual::findHeadings() {
    for (auto block = document()->begin(); block.isValid(); block = block.next())
        if (const int level = block.blockFormat().headingLevel(); level > 0)
            headings_.push_back({level, block.text(), block.position()});
}

void Manual::drawTables() {
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().mid());
        format.setBorderCollapse(true);
        format.setCellPadding(cellPadding);
        table->setFormat(format);
    }
}

int Manual::sectionOf(const QString& words) const {
    for (std::size_t number = 0; number < headings_.size(); ++number)
        if (wordsOf(headings_[number].text).contains(words)) return static_cast<int>(number);
    return -1;
}

void Manual::goTo(int heading) {
    QTextCursor cursor(document());
    cursor.setPosition(headings_.at(static_cast<std::size_t>(heading)).position);
    setTextCursor(cursor);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top());
}

QVariant Manual::loadResource(int type, const QUrl& name) {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) return resource;
    QImage picture;
    picture.loadFromData(resource.toByteArray());
    const double ratio = devicePixelRatioF();
    const int widest =
        std::min(widestPicture, screen()->availableSize().width() * 11 / 20); // beside the contents
    if (picture.width() <= widest) return picture;
    if (picture.width() > widest * ratio)
        picture = picture.scaledToWidth(static_cast<int>(widest * ratio), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(picture.width() / static_cast<double>(widest));
    return picture;
}
