// Flattens a problem's hierarchy into a work table, with a key that sorts it for the reports.
#pragma once

#include <QString>

class Connection;

// Fills `tempfac` with one row for each edge below the problem: parent, child, level (1: the problem's own
// factors), seq (child display order) and the key dno. With b = 最大分岐数 + 1 and L = 構成レベル:
//
//   grouped = 1: dno = parent's dno × b + display order + 1. Sorts level by level, each level by parent, as
//   long as no display order exceeds 最大分岐数. The children of a factor that stands under several parents
//   of one level are listed once, with the largest key.
//
//   grouped = 0: dno = parent's dno + b^(L − level + 1) × display order. One row for each path, depth first.
//
// Keys are whole up to 63 bits, floating numbers beyond.
//
// Raises a database error when the problem has no row in 課題, and error 5 when its hierarchy runs in a
// circle; `tempfac` keeps what was inserted before.
void NumberHierarchy(Connection& connection, const QString& problemNo, const qint16& grouped);

// Replaces `workfac` by parent, child and key of `tempfac`.
void copyToWorkfac(Connection& connection);
