// Base of every window of the program: load, show, unload, centre, position.
#pragma once

#include <QWidget>
#include <functional>

class Form : public QWidget {
  public:
    explicit Form(const QString& name);

    // The Japanese name by which menus and other screens ask for this form.
    const QString& name() const { return name_; }

    // Runs once, before the form is first shown.
    virtual void Form_Load() = 0;

    // Called when the user closes the window by its frame: does what the form's end button does. The form
    // stays open when the handler does not unload it.
    virtual void frameClosed() = 0;

    // Hides the window for good; the owner then discards the instance.
    void unload();

    // Takes the size that its contents would like, and no more than the screen has free. Where that is too
    // little, lists and grids give way first, which scroll by themselves, then the window as a whole scrolls.
    void fitToScreen();
    void fitToScreen(const QSize& wanted);
    // The same, then left = (screen width − form width) / 2, top likewise, in one move.
    void centre();
    // In twips, 15 to the pixel.
    void position(int leftTwips, int topTwips);
    // Stands to the right of another window that it would lie over, as far as the screen has room.
    void stepAside(const Form& other);

  protected:
    void closeEvent(QCloseEvent* event) override;
    // Enter presses the button that has the focus, and goes on from a field to the next control.
    void keyPressEvent(QKeyEvent* event) override;
    // What stays in view below contents that scroll, if anything.
    virtual QWidget* lineBelow() const { return nullptr; }

  private:
    bool needsMoreThan(const QSize& room) const;
    void layOutAnew();
    void shrinkViews();
    void scrollContents();

    QString name_;
    bool unloading_ = false;
};
