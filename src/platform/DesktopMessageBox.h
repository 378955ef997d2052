// Message boxes as windows on the desktop.
#pragma once

#include "platform/MessageBox.h"

MessagePresenter desktopPresenter();
