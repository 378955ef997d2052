// The formats that tables come in: a row for each. The programs take what their file dialogs show from here,
// hollin-sheet how a file is known, by what is in it and not by its name, and who reads it.
#pragma once

#include <array>
#include <string_view>

struct Source;
class Listing;

struct Format {
    std::string_view patterns; // of the names in a file dialog
    bool (*recognises)(const Source&);
    void (*read)(const Source&, Listing&);
};

bool isWorkbook(const Source& source);
void readWorkbook(const Source& source, Listing& listing);
bool isOpenDocument(const Source& source);
void readOpenDocument(const Source& source, Listing& listing);
bool isSeparatedText(const Source& source);
void readSeparatedText(const Source& source, Listing& listing);

// The first that recognises a file reads it.
inline constexpr std::array formats{
    Format{"*.xlsx *.xlsm", isWorkbook, readWorkbook},
    Format{"*.ods", isOpenDocument, readOpenDocument},
    Format{"*.csv *.tsv *.txt", isSeparatedText, readSeparatedText},
};
