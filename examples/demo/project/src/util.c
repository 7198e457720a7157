#include "util.h"

int util_answer(void) { return 42; }
