#pragma once

/// Makes what surrounds a test program the same wherever it is started: texts and numbers in no country's manner, no
/// data folders of the user's, no display. To be called before anything reads the environment, and before there is an
/// application object.
void setSurroundings();
