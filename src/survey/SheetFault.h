// How the reading of a spreadsheet file ended: the exit code of hollin-sheet.
#pragma once

enum class SheetFault { None = 0, Broken = 3, TooLarge = 4, Macros = 5 };
