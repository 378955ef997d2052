// Message boxes as windows on the desktop.
#pragma once

#include "text/MessageBox.h"

MessagePresenter desktopPresenter();
