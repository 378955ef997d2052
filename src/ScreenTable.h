// The table of screens: what a menu or a screen asks for by name.
#pragma once

class Screens;

void fillScreenTable(Screens& screens);
