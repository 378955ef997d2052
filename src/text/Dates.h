// Dates as users type them and as rows and pages carry them.
#pragma once

#include <QDate>
#include <optional>

// As offices write it: "2026/4/1", "2026-4-1", "2026.4.1", "2026年4月1日", "26/4/1" (this century), with the
// year of an era ("令和8年4月1日", "R8.4.1", "平成元年…", "H1/…"), or without the year (this year's).
// Full-width digits, letters and signs count as their half-width forms. Nothing for a text that is no date of
// the calendar, or that lies outside its era.
std::optional<QDate> parseDate(const QString& text);

// "yyyy/mm/dd".
QString formatDate(QDate date);
