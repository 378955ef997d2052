#include "core/Menus.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

#include "core/Common.h"
#include "core/Messages.h"
#include "files/ApplicationDirectory.h"

using namespace Qt::StringLiterals;

namespace {

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

Menu::Menu(const QString& name) : Screen(name) {
    setWindowTitle(name);
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(40, edge, 40, edge);
    column->setSpacing(gap);
    const auto entries = Common::Forms.entriesOf(name);
    const int height =
        buttonHeight(this->screen()->availableGeometry().height(), static_cast<int>(entries.size()) + 1);
    const auto addButton = [&](const QString& control, const QString& caption) {
        auto* button = new QPushButton(caption);
        button->setObjectName(control);
        button->setFont(QFont(u"ＭＳ Ｐゴシック"_s, buttonPoints));
        button->setFixedSize(buttonSize.width(), height);
        button->setAutoDefault(true);
        column->addWidget(button);
        return button;
    };
    for (const auto& entry : entries) {
        auto* button = addButton(entry.place->control, entry.place->caption);
        onEvent(button, &QPushButton::clicked, [this, screen = entry.name, button] {
            lastChosen()[this->name()] = button->objectName();
            if (open(screen)) Common::Forms.unload(this->name());
        });
    }
    column->addSpacing(14);
    onEvent(addButton(u"Command2"_s, u"終   了"_s), &QPushButton::clicked, [this] { end(); });
    if (auto* chosen = findChild<QPushButton*>(lastChosen()[name])) chosen->setFocus();
}

bool Menu::open(const QString& screen) {
    Common::Forms.show(screen);
    return true;
}

メニュー::メニュー() : Menu(u"メニュー"_s) {}

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

登録メニュー::登録メニュー() : Menu(u"登録メニュー"_s) {}

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
