// A field that narrows a list to what is searched for.
#pragma once

#include <QObject>

class QLineEdit;
class QListWidget;

class ListSearch : public QObject {
  public:
    // Owned by the field. Part of an entry's text finds it, whatever its width and case; Down goes on from
    // the field to the list.
    ListSearch(QLineEdit* field, QListWidget* list);

    // Narrows the list; to be called when it has been filled anew. Entries are only hidden, so that their
    // positions stay.
    void apply();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* field_;
    QListWidget* list_;
};
