#pragma once

// The controls of the main window by their names, for whoever works on them from outside this
// folder: a generated form header is only found by the build beside its form.
#include "ui_contenitore.h"
