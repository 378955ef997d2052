// The texts that the program brings along.
#pragma once

// A static library's resources are linked only when someone asks for them.
void loadStartupResources();
