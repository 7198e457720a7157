#include "util.h"
#include <toolbox.h>

int main(void) { return util_answer() - toolbox_version(); }
