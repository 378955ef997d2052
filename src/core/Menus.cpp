#include "core/Menus.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <map>

#include "files/ApplicationDirectory.h"

using namespace Qt::StringLiterals;

namespace {

// In the order in which a decision is worked on, the end last.
constexpr std::array mainEntries{
    MenuEntry{u"Command1", u"基礎データ登録", u"登録メニュー"},
    MenuEntry{u"Command4", u"比      較", u"比較者設定"},
    MenuEntry{u"Command7", u"評価計算", u"評価計算"},
    MenuEntry{u"Command3", u"個人結果", u"個人結果"},
    MenuEntry{u"Command5", u"報告作成", u"報告作成"},
    MenuEntry{u"Command6", u"分析出力", u"分析出力"},
    MenuEntry{u"Command8", u"最終結果", u"最終結果"},
    MenuEntry{u"Command2", u"終   了", u""},
};

constexpr std::array registrationEntries{
    MenuEntry{u"Command5", u"要因登録", u"要因登録"},
    MenuEntry{u"Command1", u"課題登録", u"課題登録"},
    MenuEntry{u"Command6", u"評価者登録", u"評価者登録"},
    MenuEntry{u"Command4", u"課題構成登録", u"課題構成登録"},
    MenuEntry{u"Command8", u"課題評価者登録", u"課題評価者登録"},
    MenuEntry{u"Command3", u"要因構成登録", u"要因構成登録"},
    MenuEntry{u"Command2", u"終   了", u""},
};

constexpr QSize buttonSize{260, 40};
constexpr int lowestButton = 28;
constexpr int buttonPoints = 12;
constexpr int gap = 10;
constexpr int edge = 30; // above the first button and below the last
constexpr int titleBar = 30;

// The menus have to be seen whole on the lowest screens, too.
int buttonHeight(int screenHeight, int buttons) {
    const int room = screenHeight - titleBar - 3 * edge; // some of it goes before the end button
    return std::clamp(room / buttons - gap, lowestButton, buttonSize.height());
}

// The button that each menu was left by: whoever comes back goes on from there.
std::map<QString, QString>& lastChosen() {
    static std::map<QString, QString> buttons;
    return buttons;
}

} // namespace

Menu::Menu(const QString& name, std::span<const MenuEntry> entries) : Screen(name) {
    setWindowTitle(name);
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(40, edge, 40, edge);
    column->setSpacing(gap);
    const int height =
        buttonHeight(this->screen()->availableGeometry().height(), static_cast<int>(entries.size()));
    for (const auto& entry : entries) {
        auto* button = new QPushButton(entry.caption.toString());
        button->setObjectName(entry.control.toString());
        button->setFont(QFont(u"ＭＳ Ｐゴシック"_s, buttonPoints));
        button->setFixedSize(buttonSize.width(), height);
        button->setAutoDefault(true);
        column->addWidget(button);
        const QString screen = entry.screen.toString();
        if (screen.isEmpty()) {
            column->insertSpacing(column->count() - 1, 14);
            onEvent(button, &QPushButton::clicked, [this] { end(); });
        } else {
            button->setEnabled(Common::Forms.exists(screen));
            onEvent(button, &QPushButton::clicked, [this, screen, button] {
                lastChosen()[this->name()] = button->objectName();
                if (open(screen)) Common::Forms.unload(this->name());
            });
        }
    }
    if (auto* chosen = findChild<QPushButton*>(lastChosen()[name])) chosen->setFocus();
}

bool Menu::open(const QString& screen) {
    Common::Forms.show(screen);
    return true;
}

メニュー::メニュー() : Menu(u"メニュー"_s, mainEntries) {}

void メニュー::Form_Load() {
    Common::MsgTitle = windowTitle();
    const bool isFirst = !Common::DbConn || !Common::DbConn->isOpen();
    try {
        Common::openDatabase(applicationDirectory());
    } catch (const RuntimeError& error) {
        if (!isFirst) throw ReopenError(error);
        throw StartError(error);
    }
}

void メニュー::end() {
    Common::DbConn->close();
    Common::Forms.unload(name());
}

void メニュー::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) Menu::keyPressEvent(event);
}

登録メニュー::登録メニュー() : Menu(u"登録メニュー"_s, registrationEntries) {}

void 登録メニュー::Form_Load() {
    Common::MsgTitle = windowTitle();
    centre();
}

void 登録メニュー::end() {
    leaveTo(u"メニュー"_s);
}

// The evaluator screen cannot be used when its table could not be read: it has told so, and closes again.
bool 登録メニュー::open(const QString& screen) {
    Menu::open(screen);
    if (screen != u"評価者登録"_s || Common::EvaluatorLoadFailed == 0) return true;
    Common::Forms.unload(screen);
    Common::MsgTitle = windowTitle(); // the menu goes on under its own
    return false;
}
