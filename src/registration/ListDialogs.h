// The list dialogs of the registration screens: problems, factors or evaluators, one row each.
#pragma once

#include <memory>

#include "core/NumberedNames.h"
#include "core/Screen.h"
#include "database/Sql.h"

namespace Common {

// The problems of the list that was shown last, in the order of its rows.
extern std::vector<NumberedName> PickList;
extern qint16 PickCount; // index into PickList, -1: none chosen

} // namespace Common

class Recordset;
namespace Ui {
class ListDialog;
}

enum class Rows { Factors, Evaluators };

// What a dialog does to PickList and PickCount.
enum class PickUse {
    None,
    Shown,  // PickList holds the rows afterwards, and PickCount says that none is chosen
    Picked, // PickList holds the rows, and the user chooses one or cancels
};

// What the dialogs differ in.
struct ListDialogKind {
    QStringView name;
    QStringView caption;
    Sql sql;
    Rows rows;
    PickUse pickUse;
    bool isSearchable = false;
};

class ListDialog : public Screen {
  public:
    explicit ListDialog(const ListDialogKind& kind);
    ~ListDialog() override;

    void Form_Load() override;
    // Just closes: what was picked before stays picked.
    void end() override { Common::Forms.unload(name()); }

  protected:
    // Reads the records and adds their rows.
    virtual void fill();
    QString helpTopic() const override { return windowTitle(); }
    Ui::ListDialog& ui() { return *ui_; }

  private:
    bool hasInput() const override { return false; } // what is searched for is no loss

    void layOut();
    void fitBesideScreen();
    QString row(const Recordset& record) const;

    const ListDialogKind& kind_;
    std::unique_ptr<Ui::ListDialog> ui_;
};

// Problem picker: whoever shows it reads PickList and PickCount after it has closed.
class 課題選択 : public ListDialog {
  public:
    課題選択();

  protected:
    // Enter picks the current row, as a double-click does.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void List1_DblClick(); // picks the row
    void Command1_Click(); // "ｷｬﾝｾﾙ"
};

// Problems, beside the problem configuration.
class 課題候補表示 : public ListDialog {
  public:
    課題候補表示();
};

// Problems, beside the problem registration.
class 課題要因表示 : public ListDialog {
  public:
    課題要因表示();
};

// All factors, beside the factor registration.
class 要因表示 : public ListDialog {
  public:
    要因表示();
};

// Evaluators, beside the evaluator registration.
class 評価者表示 : public ListDialog {
  public:
    評価者表示();

  protected:
    // Tells an error itself and sets EvaluatorLoadFailed to 1.
    void fill() override;
};
