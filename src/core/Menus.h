// The main menu and the registration menu.
#pragma once

#include <functional>
#include <span>

#include "core/Screen.h"

// A button of a menu: control, caption, and the screen that it shows before the menu closes. An entry without
// a screen ends the menu.
struct MenuEntry {
    QStringView control;
    QStringView caption;
    QStringView screen;
};

class Menu : public Screen {
  public:
    Menu(const QString& name, std::span<const MenuEntry> entries);

  protected:
    // Shows the chosen screen; true when the menu closes then.
    virtual bool open(const QString& screen);
};

// Main menu.
class メニュー : public Menu {
  public:
    メニュー();
    void Form_Load() override;

  protected:
    void end() override;
    // Esc, pressed once too often on the way back, must not end the program.
    void keyPressEvent(QKeyEvent* event) override;
};

// Registration menu.
class 登録メニュー : public Menu {
  public:
    登録メニュー();
    void Form_Load() override;

  protected:
    void end() override;
    bool open(const QString& screen) override;
};
