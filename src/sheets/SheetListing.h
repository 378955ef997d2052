// What hollin-sheet and the programs that run it say to each other. It knows nothing of the toolkit.
//
// For each file a line "fault <tab> bytes", then so many bytes of lines, UTF-8:
//
//     S <tab> name of the table                               the cells below stand on it
//     C <tab> row, from 1 <tab> column, from 0 <tab> kind <tab> text
//     M <tab> first row <tab> last row                        cells of these rows were made one
//
// "\", tab and line ends in a text stand as "\\", "\t", "\n".
#pragma once

enum class SheetFault {
    None,
    Missing,
    NotReadable,
    NotAFile, // a folder, a device, a pipe
    Empty,
    Broken,
    TooLarge,
    Macros,
    Locked,        // encrypted: a password is needed
    OldOrLocked,   // the container of .xls and of encrypted .xlsx
    UnknownFormat, // nothing that is read here
};

enum class CellKind : char {
    Text = 't',
    Number = 'n', // a date, too
    Truth = 'b',
    Formula = 'f', // with its result
    Error = 'e',   // "#N/A", or what could not be made out
};
