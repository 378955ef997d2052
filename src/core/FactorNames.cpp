#include "core/FactorNames.h"

#include "core/Common.h"
#include "database/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

QString nameFrom(const Recordset& row, const QString& field) {
    return row.eof() ? QString() : Common::NullToEmpty(row[field]);
}

} // namespace

QString factorName(Connection& connection, qint32 factorNo) {
    return nameFrom(Recordset(connection, u"select 要因名 from 要因 where 要因番号=?", factorNo),
                    u"要因名"_s);
}

QString evaluatorName(Connection& connection, qint32 evaluatorNo) {
    return nameFrom(Recordset(connection, u"select 評価者氏名 from 評価者 where 評価者番号=?", evaluatorNo),
                    u"評価者氏名"_s);
}

QString FactorNames::operator[](qint32 factorNo) {
    auto known = names_.find(factorNo);
    if (known == names_.end()) known = names_.insert(factorNo, factorName(connection_, factorNo));
    return *known;
}
