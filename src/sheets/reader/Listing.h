// Writes the cells of a file to standard output as they are met.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sheets/SheetListing.h"

class Listing {
  public:
    // A table that has no cells is not told.
    void table(std::string_view name) { name_ = name, announced_ = false; }
    // Row and column from 0. An empty text is no cell, unless a formula made it.
    void cell(int row, int column, CellKind kind, std::string_view text);
    void merged(int firstRow, int lastRow);

  private:
    void announce();

    std::string name_;
    bool announced_ = false;
    std::size_t cells_ = 0; // of all tables, so that many small ones are no way around
};
