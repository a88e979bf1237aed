// The main window's side of the digital modes.
#include "contest/frTest.h"

void frTest::Initiera_MMVari() {}

void frTest::TX() {}

void frTest::RX() {}
