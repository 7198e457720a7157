/* Written by a generator; never edited by hand. */
int parser_run(void) { return 0; }
