// Texts of the toolkit's own buttons, dialogs and command lines.
#pragma once

// Shows them in Japanese from now on. Needs a QCoreApplication.
void installStandardTexts();
