// What the registration screens have in common: how a field is read and refused, and how the screen is left.
#pragma once

#include "core/Screen.h"

class RegistrationScreen : public Screen {
  public:
    // `list` is the list dialog that the screen opens beside itself, empty when it has none.
    explicit RegistrationScreen(const QString& name, QString list = {});

    void end() override { Command4_Click(); }

  protected:
    const QString& list() const { return list_; }
    // Opens the list, which has a place of its own: where that is the screen's, the screen moves.
    void showList();

    // Back to the registration menu.
    void Command4_Click();

    // Refuses the field; false, so that a check can return it.
    static bool refusedAt(QWidget* field, const QString& text);
    // Each refuses the field with `text` when it does not hold what is asked for.
    static bool requireNumber(QLineEdit* field, const QString& text);
    static bool requireNumberOrBlank(QLineEdit* field, const QString& text);
    static bool requireText(QLineEdit* field, const QString& text);

    // The question; then the check that was passed before it once more, now in the unit of work that will
    // write: another program may have written while the question stood. The check tells by itself what is
    // wrong.
    static bool mayWrite(const QString& question, const std::function<bool()>& check);

    // "0007 '環境' を登録しました。": what the fields hold is stored, and no longer to be lost.
    void sayDone(const QString& number, const QString& name, const QString& done);

    // After a change: nothing is left in the fields, nor to be lost.
    void clearFields();

    // Fills the field from a record and shows the text from its beginning. A change that follows stores what
    // the field shows: of several lines none is lost.
    static void fill(QLineEdit* field, const QString& text);
    // The number that the field begins with, as statements look it up.
    static double numberIn(const QLineEdit* field);
    // The same as the columns of whole numbers hold it: halves to the even one. Raises error 6 beyond 32
    // bits.
    static qint32 wholeNumberIn(const QLineEdit* field);

  private:
    QString list_;
};
