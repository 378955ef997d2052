// What can break on any screen of the table, whoever adds one.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include "platform/ElidedLabel.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class ScreensTest : public ScreenTest {
  protected:
    ScreensTest() {
        run(u"INSERT INTO 要因 VALUES (1,0,'課題',''),(2,1,'要因二',''),(3,1,'要因三','')"_s);
        run(u"INSERT INTO 課題 VALUES (1,1,2,2,1)"_s);
        structure(u"1:2,3"_s);
        evaluators({1, 2});
        Common::CmpProblemNo = 1;
    }
    static QRect placeOf(const QWidget* control, const QWidget* form) {
        return {control->mapTo(form, QPoint()), control->size()};
    }
    static std::string nameOf(const QString& screen, const QWidget* control) {
        return (screen + u'.' + control->objectName()).toStdString();
    }
};

TEST_F(ScreensTest, WindowsKeepWithinTheScreenAndShowTheirTextsWhole) {
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        const QWidget* form = Common::Forms.find(name);
        const QSize screen = form->screen()->availableSize();
        EXPECT_TRUE(form->width() <= screen.width() && form->height() <= screen.height())
            << name.toStdString() << ": " << form->width() << " x " << form->height();
        for (const auto* control : form->findChildren<QWidget*>()) {
            const bool hasText = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                                 qobject_cast<const QLabel*>(control) != nullptr;
            if (!hasText || !control->isVisible() || control->objectName().isEmpty()) continue;
            const QSize needed = control->minimumSizeHint();
            EXPECT_TRUE(control->width() >= needed.width() && control->height() >= needed.height())
                << nameOf(name, control);
        }
    }
}

// Tab never goes back to a control that stands both higher and further to the left.
TEST_F(ScreensTest, TabFollowsTheOrderInWhichOneReads) {
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        QWidget* form = Common::Forms.find(name);
        const QWidget* before = nullptr;
        for (QWidget* next = form->nextInFocusChain(); next != form; next = next->nextInFocusChain()) {
            const bool isStop = next->isVisibleTo(form) && next->isEnabled() && next->window() == form &&
                                next->focusProxy() == nullptr && (next->focusPolicy() & Qt::TabFocus) != 0;
            if (!isStop) continue;
            if (before != nullptr) {
                const QRect from = placeOf(before, form);
                const QRect to = placeOf(next, form);
                EXPECT_FALSE(to.bottom() < from.top() && to.left() <= from.left())
                    << nameOf(name, before) << " to " << nameOf(name, next);
            }
            before = next;
        }
    }
}

TEST_F(ScreensTest, TheStatusLineTellsOfFailureAndIsClearedByTheNextAction) {
    Common::Forms.show(u"要因登録"_s);
    type(u"要因登録", u"Text1", u"99999");
    type(u"要因登録", u"Text2", u"1");
    EXPECT_EQ(told(u"要因登録", u"Command1"), warning(u"登録"_s, u"オーバーフローしました。"_s));
    EXPECT_EQ(text(u"要因登録", u"Status"), u"「登録」を完了できませんでした。"_s);
    type(u"要因登録", u"Text1", u"2");
    click(u"要因登録", u"Command3");
    EXPECT_FALSE(text(u"要因登録", u"Status").contains(u"できませんでした"_s));
}

// Esc leaves for the menu, on the button one came by, unless something typed would be lost.
TEST_F(ScreensTest, EscapeLeavesUnlessItLosesWhatWasTyped) {
    Common::Forms.show(u"登録メニュー"_s);
    click(u"登録メニュー", u"Command6");
    auto* name = control<QLineEdit>(u"評価者登録", u"Text3");
    QTest::keyClicks(name, u"abc"_s);
    QTest::keyClick(name, Qt::Key_Escape);
    ASSERT_TRUE(isOpen(u"評価者登録"));
    name->setModified(false);
    QTest::keyClick(name, Qt::Key_Escape);
    EXPECT_FALSE(isOpen(u"評価者登録"));
    EXPECT_TRUE(hasFocus(u"登録メニュー", u"Command6"));
    QTest::keyClick(Common::Forms.find(u"登録メニュー"_s), Qt::Key_Escape);
    QTest::keyClick(Common::Forms.find(u"メニュー"_s), Qt::Key_Escape);
    EXPECT_TRUE(isOpen(u"メニュー"));
}
