// Files that the program makes for its users, named after what is in them.
#pragma once

#include <QByteArray>
#include <QString>

#include "printing/Printer.h"

// "評価者_個人結果_課題_2回目", in characters that file systems take, each name cut to what a file name has
// room for.
QString documentTitle(const DocumentName& name);

// Writes the bytes into a file of its own, "評価者_個人結果_課題_2回目_20260401-090000.pdf" for the type
// "pdf", and never over another one; its path. Raises error 75 or 76 when it cannot be written; no file is
// left then.
QString writeDocument(const QString& folder, const DocumentName& name, const QString& type,
                      const QByteArray& bytes);
