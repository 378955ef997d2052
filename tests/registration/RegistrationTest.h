// What the tests of the registration screens share: one screen at a time, tables of refused inputs, and texts
// that have hurt before.
#pragma once

#include <QListWidget>

#include "support/ScreenTest.h"

class RegistrationTest : public ScreenTest {
  protected:
    using Typed = std::vector<std::pair<QStringView, QStringView>>; // field, text

    // One click that must be refused; `focus` is the button itself where the message names no field.
    struct Refusal {
        Typed typed;
        QStringView button;
        QStringView text;
        QStringView focus;
    };

    void open(QStringView name) { Common::Forms.show(screen = name.toString()); }
    void type(const Typed& typed) {
        for (const auto& [field, text] : typed) ScreenTest::type(screen, field.toString(), text.toString());
    }
    void click(QStringView button) { ScreenTest::click(screen, button.toString()); }
    bool isOpen(QStringView name) { return ScreenTest::isOpen(name.toString()); }
    // Texts of the controls, joined by "|".
    QString texts(std::initializer_list<QStringView> controls) {
        QStringList found;
        for (const auto control : controls) found << text(screen, control.toString());
        return found.join(u'|');
    }
    QStringList entries(QStringView list) {
        QStringList found;
        const auto* box = control<QListWidget>(screen, list.toString());
        for (int row = 0; row < box->count(); ++row) found << box->item(row)->text();
        return found;
    }

    // Each refusal starts from the fields that the one before left, and leaves the table as it is.
    void expectRefusals(QStringView title, QStringView table, const std::vector<Refusal>& refusals) {
        const QString everything = QStringLiteral("SELECT * FROM %1 ").arg(table);
        const QStringList before = rows(everything);
        for (const auto& [typed, button, text, focus] : refusals) {
            type(typed);
            click(button);
            EXPECT_EQ(takeMessages(), warning(title.toString(), text.toString()));
            EXPECT_TRUE(hasFocus(screen, focus.toString())) << text.toString().toStdString();
        }
        EXPECT_EQ(rows(everything), before);
    }

    static QStringList hurtingTexts() {
        return {QStringLiteral("O'Hara"),
                QStringLiteral("''); DELETE FROM 要因; -- "),
                QStringLiteral("\"a\" 100%_;\\ /*"),
                QStringLiteral("%1 %2 1e5AND"),
                QStringLiteral("ﾊﾝｶｸ ｶﾅﾞ"),
                QStringLiteral("𠮷野家の𠮷"),
                QString(400, QChar(0x9577))};
    }

    QString screen;
};
