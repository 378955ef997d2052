// What the program is and what it is made of.
#pragma once

#include <QString>

QString programVersion();

// Version, where the data is, licences of what is used; plain text of several paragraphs.
QString aboutText();
