// The manual for users as the program shows it: one Markdown file with its pictures, read beside the program.
#pragma once

#include <QTextBrowser>
#include <vector>

// Where the manual lies: beside the program, or where the package puts it.
QString manualFile();

class Manual : public QTextBrowser {
  public:
    struct Heading {
        int level; // 1 for the title
        QString text;
        int position; // in the document, characters
    };

    explicit Manual(const QString& file);

    // False when the file is not there.
    bool isRead() const { return !headings_.empty(); }
    const std::vector<Heading>& headings() const { return headings_; }
    // The section that is headed by the words, by its number in headings(); -1 when there is none. A heading
    // may stand for several: "4.3 要因登録、課題登録".
    int sectionOf(const QString& words) const;
    void goTo(int heading);

    // Pictures no wider than a page of text.
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    void findHeadings();
    void spaceParagraphs();
    void drawTables();

    std::vector<Heading> headings_;
};
