#include <QDir>
#include <QFileDialog>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "database/DatabaseFile.h"
#include "files/TextFile.h"
#include "help/HelpWindow.h"
#include "help/Manual.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class ManualTest : public ScreenTest {
  protected:
    static QString folder() { return qEnvironmentVariable("HOLLIN_DIRECTORY") + u"/docs/"_s; }
    static QString file() { return folder() + u"manual.md"_s; }
};

// Every screen in the table, whoever adds one: F1 asks for a section that the manual has.
TEST_F(ManualTest, EveryScreenHasASectionThatItsHelpKeyOpens) {
    const Manual manual(file());
    ASSERT_TRUE(manual.isRead());
    QString asked;
    Common::HelpPresenter = [&asked](const QString& topic) { asked = topic; };
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        asked.clear();
        QTest::keyClick(Common::Forms.find(name), Qt::Key_F1);
        EXPECT_GE(manual.sectionOf(asked), 0) << "no heading for " << name.toStdString();
    }
}

TEST_F(ManualTest, EveryPictureIsThereAndEveryPictureIsUsed) {
    QStringList shown;
    const QRegularExpression picture(u"\\]\\(pictures/([^)]+)\\)"_s);
    for (auto match = picture.globalMatch(readLines(file()).join(u'\n')); match.hasNext();)
        shown << match.next().captured(1);
    shown.sort();
    shown.removeDuplicates();
    EXPECT_EQ(shown, QDir(folder() + u"pictures"_s).entryList(QDir::Files, QDir::Name));
}

TEST_F(ManualTest, HelpStandsAtTheSectionAndCopiesTheDataWithoutOverwriting) {
    HelpWindow help(file());
    help.showSection(u"要因構成登録"_s);
    EXPECT_EQ(help.findChild<QListWidget*>(u"Contents"_s)->currentItem()->text().trimmed(),
              u"4.7 要因構成登録"_s);
    const QString copy = directory() + u"/copy.mdb"_s;
    const auto backUp = [&] {
        QTimer::singleShot(0, [&copy] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            dialog->selectFile(copy);
            static_cast<QDialog*>(dialog)->accept();
        });
        help.findChild<QPushButton*>(u"Copy"_s)->click();
        return takeMessages();
    };
    EXPECT_EQ(backUp(), notice(u"データの控え"_s, u"データの控えを作りました。\n"_s + copy));
    EXPECT_TRUE(databaseFaults(copy, u"tobul"_s).isEmpty());
    EXPECT_EQ(backUp(), warning(u"データの控え"_s, u"ファイルは既に存在します。\n"_s + copy));
}
