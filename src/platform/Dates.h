// Dates as users type them and as rows and pages carry them.
#pragma once

#include <QDate>
#include <optional>

// "2026/4/1", "2026-04-01", "2026.4.1", "2026年4月1日", or without the year (this year's). Full-width digits
// and signs count as their half-width forms. Nothing for a text that is no date of the calendar.
std::optional<QDate> parseDate(const QString& text);

// "yyyy/mm/dd".
QString formatDate(QDate date);
