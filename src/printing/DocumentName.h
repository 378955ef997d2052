// Files that the program makes for its users, named after what is in them.
#pragma once

#include <QByteArray>
#include <QString>

// What a document is called: the name of its PDF file and of its print job. Empty parts are left out. Whose
// it is comes first: dialogs and lists of files cut long names at their end.
struct DocumentName {
    QString screen;
    QString problem;
    QString evaluator;
    int round = 0; // 0 for none
};

// "評価者_個人結果_課題_2回目", in characters that file systems take, each name cut to what a file name has
// room for.
QString documentTitle(const DocumentName& name);

// Writes the bytes into a file of its own, "評価者_個人結果_課題_2回目_20260401-090000.pdf" for the type
// "pdf", and never over another one; its path. Raises error 75 or 76 when it cannot be written; no file is
// left then.
QString writeNamedFile(const QString& folder, const DocumentName& name, const QString& type,
                       const QByteArray& bytes);
