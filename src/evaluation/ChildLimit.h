// The error of a parent with more children than a calculation or a report takes.
#pragma once

#include "text/RuntimeError.h"

class Connection;

// Error 9, with the parent's name and how many children it may have.
RuntimeError tooManyChildren(Connection& connection, qint32 parentNo, int most);
