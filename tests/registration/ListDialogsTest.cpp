#include <QSettings>
#include <QTest>

#include "registration/ListDialogs.h"
#include "registration/RegistrationTest.h"

class ListDialogsTest : public RegistrationTest {
  protected:
    ListDialogsTest() {
        run(u"INSERT INTO 要因 VALUES (12345,0,'大''',''),(7,0,NULL,''),(8,1,'要因','')"_s);
        Common::PickList.assign(3, {u"old"_s, u"older"_s});
        Common::PickCount = 5;
    }
    QString shownRows(QStringView dialog) {
        open(dialog);
        return entries(u"List1");
    }
    QString picks() {
        QStringList texts;
        for (const auto& [number, name] : Common::PickList) texts << number + u'|' + name;
        return texts.join(u' ') + u" at "_s + QString::number(Common::PickCount);
    }
};

TEST_F(ListDialogsTest, ListsFactorsAndKeepsPickListInStep) {
    EXPECT_EQ(shownRows(u"要因表示"), u"     0007      \n     0008      要因\n     2345      大'"_s);
    EXPECT_EQ(picks(), u"old|older old|older old|older at 5"_s);
    type({{u"Text1", u"ヨウ"}});
    EXPECT_EQ(entries(u"List1"), QString());
    type({{u"Text1", u"０００８"}});
    EXPECT_EQ(entries(u"List1"), u"     0008      要因"_s);
    EXPECT_EQ(shownRows(u"課題選択"), u"        7      \n     1234      大'"_s);
    EXPECT_EQ(picks(), u"7| 12345|大' at 5"_s);
    for (const auto dialog : {u"課題候補表示", u"課題要因表示"}) {
        Common::PickList.assign(1, {u"old"_s, u"older"_s});
        Common::PickCount = 3;
        EXPECT_EQ(shownRows(dialog), u"     0007      \n     2345      大'"_s);
        EXPECT_EQ(picks(), u"7| 12345|大' at -1"_s);
    }
}

TEST_F(ListDialogsTest, AlignsEvaluatorsInFullWidthColumns) {
    run(u"INSERT INTO 評価者 VALUES (1234,'ﾔﾏﾀﾞ Abc','企画'),(5,'一二三四五六七八九十十一',NULL),(6,'𠮷','')"_s);
    EXPECT_EQ(shownRows(u"評価者表示"),
              u"      005      一二三四五六七八九十    　　　　　　　　　　\n"
              "      006      𠮷　　　　　　　　　    　　　　　　　　　　\n"
              "      234      ヤマダ　Ａｂｃ　　　    企画　　　　　　　　"_s);
}

TEST_F(ListDialogsTest, PicksByDoubleClickAndEnterAndCancels) {
    const auto picked = [this](const std::function<void(QListWidget*)>& close) {
        Common::PickCount = 5;
        open(u"課題選択");
        close(control<QListWidget>(screen, u"List1"));
        EXPECT_FALSE(isOpen(screen));
        return Common::PickCount;
    };
    EXPECT_EQ(picked([](auto* list) {
                  const QPoint second = list->visualItemRect(list->item(1)).center();
                  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second); // closes nothing yet
                  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
              }),
              1);
    EXPECT_EQ(picked([](auto* list) {
                  list->setFocus();
                  QTest::keyClick(list, Qt::Key_Down);
                  QTest::keyClick(list, Qt::Key_Return);
              }),
              0);
    EXPECT_EQ(picked([this](auto*) { click(u"Command1"); }), -1);
    EXPECT_EQ(picked([this](auto*) { Common::Forms.find(screen)->close(); }), 5);
}

TEST_F(ListDialogsTest, StandsWhereTheSettingsSay) {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, directory());
    QSettings settings(directory() + u"/Hollin/Hollin.conf"_s, QSettings::IniFormat);
    settings.setValue(u"Settings3/MeLeft"_s, 3000); // twips
    settings.sync();
    open(u"課題選択");
    EXPECT_EQ(Common::Forms.find(screen)->pos(), QPoint(200, 33));
}
