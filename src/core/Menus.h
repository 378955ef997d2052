// The main menu and the registration menu.
#pragma once

#include "core/Screen.h"

// A button for each screen that has a place in the menu, and one that ends it.
class Menu : public Screen {
  public:
    explicit Menu(const QString& name);

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
