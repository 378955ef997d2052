// Names of factors and evaluators by number.
#pragma once

#include <QHash>
#include <QString>

class Connection;

// Name of a factor or problem, of an evaluator; empty when there is no such row.
QString factorName(Connection& connection, qint32 factorNo);
QString evaluatorName(Connection& connection, qint32 evaluatorNo);

// Names of factors for a report, each read once.
class FactorNames {
  public:
    explicit FactorNames(Connection& connection) : connection_(connection) {}

    QString operator[](qint32 factorNo);

  private:
    Connection& connection_;
    QHash<qint32, QString> names_;
};
