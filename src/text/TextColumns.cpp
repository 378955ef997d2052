#include "text/TextColumns.h"

#include <QList>
#include <array>

#include "text/TextConversion.h"

qint16 CharWidth(char32_t character) {
    // Each character is looked up in the code page once: reports ask for the same few thousand all the time.
    static std::array<qint8, 0x10000> known{};
    const auto width = [character]() -> qint8 {
        const auto code = characterInCodePage(character);
        return code && code->size() == 1 && static_cast<unsigned char>(code->front()) < 255 ? 1 : 2;
    };
    if (character >= known.size()) return width();
    if (known[character] == 0) known[character] = width();
    return known[character];
}

int TextColumns(const QString& text) {
    int columns = 0;
    for (const char32_t character : text.toUcs4()) columns += CharWidth(character);
    return columns;
}

qint16 FitChars(const QString& text, qint16 limit) {
    qint16 fitting = 0;
    int columns = 0;
    for (const char32_t character : text.toUcs4()) {
        columns += CharWidth(character);
        if (columns > limit) break;
        ++fitting;
    }
    return fitting;
}

QString cutToColumns(const QString& text, int columns) {
    if (TextColumns(text) <= columns) return text;
    return leadingCharacters(text, FitChars(text, static_cast<qint16>(columns - 2))) + u'…';
}
