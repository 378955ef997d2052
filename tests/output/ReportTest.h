// Fixture for printed reports: a print service whose documents are PDF files in a folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "output/PrintService.h"
#include "platform/TextFile.h"
#include "support/PrintedPages.h"

class ReportTest : public ::testing::Test {
  protected:
    ReportTest() {
        print.load(folder.path());
        print.ToggleOutputTarget();
        print.ChooseReportPrinter();
        QDir(folder.path()).mkdir(QStringLiteral("file"));
        printer.setOutputFolder(print.FileDir);
        printer.onDocument([this](const QString& path) { document = path; });
    }

    QString messageFile(const QByteArray& content) {
        QString path = print.FileDir + QStringLiteral("\\message.txt");
        writeWholeFile(path, content);
        return path;
    }
    QList<PrintedPage> pages() const { return printedPages(document); }

    QTemporaryDir folder;
    ReportPrinter printer;
    PrintService print{printer};
    QString document;
};
