// Help: the manual with its table of contents, what the program is made of, a safe copy of the data.
#pragma once

#include <QWidget>

class Manual;
class QListWidget;

class HelpWindow : public QWidget {
  public:
    explicit HelpWindow(const QString& manual);

    // Shows the section of the screen, from the beginning when it has none.
    void showSection(const QString& screen);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void fillContents();
    void chooseCopy();
    void makeCopy(const QString& copy);
    void showAbout();

    Manual* manual_;
    QListWidget* contents_;
};
