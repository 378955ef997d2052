#include "output/FactorNames.h"

#include "output/ReportSelection.h"

QString FactorNames::operator[](qint32 factorNo) {
    auto known = names_.find(factorNo);
    if (known == names_.end()) known = names_.insert(factorNo, factorName(connection_, factorNo));
    return *known;
}
