// Names of factors for a report, each read once.
#pragma once

#include <QHash>
#include <QString>

class Connection;

class FactorNames {
  public:
    explicit FactorNames(Connection& connection) : connection_(connection) {}

    // Name of a factor or problem, empty when there is none.
    QString operator[](qint32 factorNo);

  private:
    Connection& connection_;
    QHash<qint32, QString> names_;
};
