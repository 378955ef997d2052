#include "text/TextConversion.h"

#include <unicode/translit.h>
#include <unicode/ucnv.h>

#include <QList>
#include <QStringDecoder>
#include <algorithm>
#include <memory>
#include <utility>

#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

using Transliterator = std::unique_ptr<icu::Transliterator>;
using Converter = std::unique_ptr<UConverter, decltype([](UConverter* open) { ucnv_close(open); })>;

constexpr const char* codePage = "windows-31j";
constexpr QStringView lineBreaks = u"\n\r\v\f\u0085\u2028\u2029";

Transliterator makeTransliterator(const char* id) {
    UErrorCode status = U_ZERO_ERROR;
    Transliterator made(icu::Transliterator::createInstance(icu::UnicodeString(id), UTRANS_FORWARD, status));
    if (U_FAILURE(status)) throw RuntimeError(ErrorCode::InvalidCall);
    return made;
}

QString transliterate(const Transliterator& transliterator, const QString& text) {
    icu::UnicodeString changed(reinterpret_cast<const char16_t*>(text.utf16()),
                               static_cast<int32_t>(text.size()));
    transliterator->transliterate(changed);
    return QString::fromUtf16(changed.getBuffer(), changed.length());
}

Converter openConverter() {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(codePage, &status));
    if (U_FAILURE(status)) throw RuntimeError(ErrorCode::InvalidCall);
    return converter;
}

} // namespace

QString toHalfWidth(const QString& text) {
    static const Transliterator narrow = makeTransliterator("Fullwidth-Halfwidth");
    return transliterate(narrow, text);
}

QString toFullWidth(const QString& text) {
    static const Transliterator wide = makeTransliterator("Halfwidth-Fullwidth");
    return transliterate(wide, text);
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control || lineBreaks.contains(character);
}

QString plainMinus(QString text) {
    return text.replace(QChar(0x2212), u'-').replace(QChar(0x2010), u'-');
}

int characterCount(const QString& text) {
    return static_cast<int>(text.toUcs4().size());
}

QString leadingCharacters(const QString& text, int count) {
    const auto characters = text.toUcs4();
    return count >= characters.size()
               ? text
               : QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), count);
}

bool hasControlCharacters(const QString& text) {
    return std::ranges::any_of(text, isControl);
}

QString firstLine(const QString& text) {
    QString line;
    for (const QChar character : text) {
        if (!isControl(character)) {
            line += character;
        } else if (character == u'\t') {
            line += u' ';
        } else if (lineBreaks.contains(character) && !line.isEmpty()) {
            break;
        }
    }
    return line;
}

QString joinedLines(const QString& text) {
    if (!hasControlCharacters(text)) return text;
    QString line;
    bool isApart = false;
    for (const QChar character : text) {
        if (isControl(character)) {
            isApart = isApart || character == u'\t' || lineBreaks.contains(character);
            continue;
        }
        if (std::exchange(isApart, false) && !line.isEmpty()) line += u' ';
        line += character;
    }
    return line;
}

std::optional<QByteArray> characterInCodePage(char32_t character) {
    static const Converter converter = [] {
        Converter made = openConverter();
        UErrorCode status = U_ZERO_ERROR;
        // The input method writes "〜" and "−" by other code points than the code page has for them.
        ucnv_setFallback(made.get(), true);
        ucnv_setFromUCallBack(made.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        return made;
    }();
    const auto text = QString::fromUcs4(&character, 1);
    QByteArray bytes(8, Qt::Uninitialized);
    UErrorCode status = U_ZERO_ERROR;
    const auto length = ucnv_fromUChars(converter.get(), bytes.data(), static_cast<int32_t>(bytes.size()),
                                        reinterpret_cast<const char16_t*>(text.utf16()),
                                        static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    bytes.truncate(length);
    return bytes;
}

QByteArray toCodePage(const QString& text) {
    QByteArray bytes;
    for (const char32_t character : text.toUcs4()) {
        const auto encoded = characterInCodePage(character);
        if (!encoded)
            throw RuntimeError(
                ErrorCode::InvalidCall,
                u"文字「%1」(U+%2) は Windows-31J の文字コードにないため、書き込めません。"_s.arg(
                    QString::fromUcs4(&character, 1),
                    QString::number(character, 16).toUpper().rightJustified(4, u'0')));
        bytes += *encoded;
    }
    return bytes;
}

static bool beginsFormula(QStringView text) {
    return !text.isEmpty() && QStringView(u"=+-@\t\r").contains(text.front());
}

QString cellOfText(const QString& text) {
    return beginsFormula(text) && !isNumeric(text) ? u'\'' + text : text;
}

QString textOfCell(const QString& cell) {
    return cell.startsWith(u'\'') && beginsFormula(QStringView(cell).sliced(1)) ? cell.sliced(1) : cell;
}

QString fromFileBytes(const QByteArray& bytes) {
    QStringDecoder utf8(QStringConverter::Utf8);
    QString decoded = utf8(bytes);
    if (!utf8.hasError()) return decoded;

    const Converter converter = openConverter();
    QString text(bytes.size() + 1, Qt::Uninitialized);
    UErrorCode status = U_ZERO_ERROR;
    const auto length = ucnv_toUChars(converter.get(), reinterpret_cast<char16_t*>(text.data()),
                                      static_cast<int32_t>(text.size()), bytes.constData(),
                                      static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) throw RuntimeError(ErrorCode::FileAccess);
    text.truncate(length);
    return text;
}
