// A file as hollin-sheet has it: its bytes, and its parts when it is an archive.
#pragma once

#include <string_view>

#include "sheets/SheetListing.h"

class Archive;

struct Source {
    std::string_view bytes;
    const Archive* archive; // none: not one
};

// Why a file is not read on.
struct Refusal {
    SheetFault fault;
};
