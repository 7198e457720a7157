int util_answer(void);
