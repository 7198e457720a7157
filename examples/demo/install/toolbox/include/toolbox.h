/* The installation's toolbox: shared by every project, owned by none. */
int toolbox_version(void);
