/* Written by a generator; never edited by hand. */
int lexer_next(void) { return 0; }
