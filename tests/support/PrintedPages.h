// Reads printed documents back: words and where they stand on the page, in millimetres.
#pragma once

#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

struct PrintedWord {
    QString text;
    QRectF box; // mm from the upper left edge of the paper; y() is the top of the text's row
};

struct PrintedPage {
    QSizeF size; // mm
    QList<PrintedWord> words;

    // The first word with this text; an empty text when there is none.
    PrintedWord word(const QString& text) const;
    // Texts of the words whose row stands at `y` mm, from left to right.
    QStringList row(double y) const;
};

QList<PrintedPage> printedPages(const QString& pdfPath);
