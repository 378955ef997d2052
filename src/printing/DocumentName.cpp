#include "printing/DocumentName.h"

#include <QDateTime>

#include "files/NewFile.h"
#include "files/TextFile.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

// A file name takes 255 bytes. The screen, the round, the date and a number leave this much for each of the
// two names.
constexpr qsizetype namePartBytes = 90;

// Characters that file systems do not take, in their full-width form.
QString fileNamePart(const QString& text) {
    static const QString refused = u"/\\:*?\"<>|"_s;
    static const QString replacements = u"／￥：＊？”＜＞｜"_s;
    QString part;
    for (const char32_t character : text.toUcs4()) {
        const auto position =
            character < 0x80 ? refused.indexOf(QChar(static_cast<char16_t>(character))) : -1;
        const QString itself = QString::fromUcs4(&character, 1);
        const auto kept = isControl(itself.front()) ? u"＿"_s
                          : position >= 0           ? replacements.mid(position, 1)
                                                    : itself;
        if ((part + kept).toUtf8().size() > namePartBytes) break;
        part += kept;
    }
    return part;
}

QString joined(const DocumentName& name, const QString& time) {
    QStringList parts;
    const auto round = name.round > 0 ? u"%1回目"_s.arg(name.round) : QString();
    for (const auto& part : {name.evaluator, name.screen, name.problem, round, time})
        if (!part.isEmpty()) parts.append(fileNamePart(part));
    return parts.join(u'_');
}

} // namespace

QString documentTitle(const DocumentName& name) {
    return joined(name, {});
}

QString writeNamedFile(const QString& folder, const DocumentName& name, const QString& type,
                       const QByteArray& bytes) {
    const auto time = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    const auto path = [&, title = joined(name, time)](int number) {
        return u"%1/%2%3.%4"_s.arg(nativePath(folder), title, number == 1 ? QString() : u"_%1"_s.arg(number),
                                   type);
    };
    NewFile file(path(1));
    file.write(bytes);
    int number = 1;
    while (!file.publishAs(path(number))) ++number;
    return path(number);
}
