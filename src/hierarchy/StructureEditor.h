// Factor structure editor: the factor tree of one problem, the children of one parent at a time.
#pragma once

#include <memory>
#include <vector>

#include "core/NumberedNames.h"
#include "core/Screen.h"
#include "hierarchy/StructureTables.h"
#include "hierarchy/StructureTree.h"

namespace Common {

// The problem that is shown, and the editor's working list.
extern qint32 StructProblemNo;
extern std::vector<NumberedName> StructList;

} // namespace Common

class ListSearch;
namespace Ui {
class StructureEditor;
}

class 要因構成登録 : public Screen {
  public:
    要因構成登録();
    ~要因構成登録() override;

    void Form_Load() override;
    void end() override { Command2_Click(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool hasInput() const override { return false; } // leaving asks itself

    void Combo1_Click();       // a problem: its structure is levelled anew and shown
    void Combo2_Click();       // a parent: its children are shown
    void List1_DblClick();     // a factor for the current row
    void Command1_Click();     // "登録"
    void Command2_Click();     // "終了"
    void Command3_Click();     // "行削除"
    void Command4_Click();     // "次の親要因"
    void SSTab1_Click();       // the page is brought up to date
    void TreeView1_DblClick(); // a node as parent

    struct Problem {
        qint32 number;
        QString name;
        int levels;
    };

    // What the screen shows of a problem beside the children of one parent.
    struct Structure {
        ParentList parents;
        std::vector<TreeNode> nodes;
    };

    const Problem& problem() const { return problems_.at(static_cast<std::size_t>(problem_)); }
    const NodePlace& chosenParent() const {
        return parents_.parents.at(static_cast<std::size_t>(parent_)).place;
    }
    ChildEntry& childOf(int row) { return children_.at(static_cast<std::size_t>(row - 1)); } // 1 to 20

    void setUpGrid();
    void fillProblems();
    void loadFactors();
    Structure rebuiltStructure(const Problem& problem);
    void showParents(ParentList parents);
    void showTree(const std::vector<TreeNode>& nodes);
    void chooseParent(int index);
    void showChildren();
    void showChild(int row);
    void showPosition();
    void refuseChild(const RefusedChild& refused);
    void finishSave(Structure structure, std::size_t saved);
    bool mayLose(int lost);
    bool mayDiscardChildren(const QString& question);
    int parentIndex(const NodePlace& place) const;
    int firstFreeRow(int from) const; // 1 to 20, 0 when there is none from there on
    bool gridKey(int key, bool alt);
    void moveRow(int by);
    bool searchKey(int key);
    bool treeKey(int key);

    std::unique_ptr<Ui::StructureEditor> ui_;
    StructureTree tree_;
    ListSearch* search_ = nullptr;  // owned by its field
    std::vector<Problem> problems_; // parallel to the entries of Combo1
    ParentList parents_;            // parallel to the entries of Combo2
    ChildList children_;            // by row, 0 to 19
    // What is shown: the boxes go back to it when the user keeps unsaved children.
    int problem_ = -1;
    int parent_ = -1;
    bool unsaved_ = false;
};
