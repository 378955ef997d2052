// What can break on any screen of the table, whoever adds one.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <set>

#include "analysis/RoundWorks.h"
#include "comparison/ComparisonSession.h"
#include "support/ScreenTest.h"
#include "widgets/ElidedLabel.h"

using namespace Qt::StringLiterals;

constexpr QSize frame{8, 30}; // that windows have at least

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
        const QSize screen = form->screen()->availableSize() - frame;
        EXPECT_TRUE(form->width() <= screen.width() && form->height() <= screen.height())
            << name.toStdString() << ": " << form->width() << " x " << form->height();
        const auto* status = form->findChild<QLabel*>(u"Status"_s);
        EXPECT_TRUE(status == nullptr || status->visibleRegion().boundingRect() == status->rect())
            << name.toStdString();
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

// Where a window scrolls, the keyboard brings what it reaches into view.
TEST_F(ScreensTest, WhatHasTheFocusIsInView) {
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        QWidget* form = Common::Forms.find(name);
        form->activateWindow();
        QCoreApplication::processEvents();
        for (QWidget* next = form->nextInFocusChain(); next != form; next = next->nextInFocusChain()) {
            if (!next->isVisible() || !next->isEnabled() || next->window() != form ||
                (next->focusPolicy() & Qt::TabFocus) == 0)
                continue;
            next->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            const QRect seen = next->visibleRegion().boundingRect();
            EXPECT_TRUE(seen.height() >= std::min(next->height(), 20)) << nameOf(name, next);
        }
    }
}

// At the smallest display, too, where a centred screen has no room beside its list.
TEST_F(ScreensTest, ListsStandBesideTheirScreen) {
    for (const auto& [name, list] : {std::pair{u"要因登録"_s, u"要因表示"_s},
                                     {u"課題登録"_s, u"課題要因表示"_s},
                                     {u"評価者登録"_s, u"評価者表示"_s},
                                     {u"課題構成登録"_s, u"課題候補表示"_s}}) {
        Common::Forms.show(name);
        const auto* form = Common::Forms.find(name);
        const QRect listed = Common::Forms.find(list)->geometry();
        const QSize room = form->screen()->size();
        if (listed.width() + form->width() + listed.x() + 2 * frame.width() > room.width()) continue;
        EXPECT_FALSE(listed.intersects(form->geometry())) << name.toStdString();
        EXPECT_LE(form->x() + form->width(), room.width()) << name.toStdString();
        const bool isCentred = form->x() == (room.width() - form->width()) / 2;
        EXPECT_EQ(isCentred, listed.right() < (room.width() - form->width()) / 2) << name.toStdString();
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
    QList<std::tuple<QString, QString, QString>> actions{{u"比較者設定"_s, u"Command1"_s, u"開始"_s},
                                                         {u"調査票"_s, u"Command3"_s, u"紙の調査票"_s},
                                                         {u"調査票"_s, u"Command5"_s, u"回答用紙 (.csv)"_s}};
    for (const auto& work : roundWorks()) actions.append({work.screen, u"Command7"_s, work.screen});
    for (const auto& [screen, button, action] : actions) {
        Common::Forms.show(screen);
        choose(screen, u"Combo1", 0);
        if (screen != u"比較者設定") select(screen, u"List1", {0});
        auto other = writer();
        EXPECT_TRUE(toldText(screen, button).contains(u"データベースをほかのプログラムが使用しています。"))
            << screen.toStdString();
        EXPECT_EQ(text(screen, u"Status"), u"「%1」を完了できませんでした。"_s.arg(action));
    }
}

TEST_F(ScreensTest, AKeyBelongsToOneControl) {
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        std::set<QString> keys;
        for (const auto* control : Common::Forms.find(name)->findChildren<QWidget*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(control);
            const auto* label = qobject_cast<const QLabel*>(control);
            const QString key = button != nullptr ? button->shortcut().toString()
                                : label != nullptr && label->buddy() != nullptr
                                    ? QKeySequence::mnemonic(label->text()).toString()
                                    : QString();
            EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << nameOf(name, control);
        }
    }
}

// What has no list that grows with the window stays together in its corner.
TEST_F(ScreensTest, EnlargedWindowsKeepTheirFieldsTogether) {
    for (const auto& name : Common::Forms.names()) {
        Common::Forms.show(name);
        auto* form = Common::Forms.find(name);
        const auto growing = form->findChildren<QAbstractScrollArea*>();
        if (std::ranges::any_of(growing, &QWidget::isVisible)) continue;
        const auto places = [form] {
            QList<QRect> all;
            for (const auto* button : form->findChildren<QAbstractButton*>()) all << placeOf(button, form);
            return all;
        };
        const auto before = places();
        form->resize(form->width(), form->height() + 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(places(), before) << name.toStdString();
    }
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
