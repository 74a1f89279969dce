// A library that is no command module.
extern "C" __attribute__((visibility("default"))) int GetQuelCmdApplications();
int GetQuelCmdApplications()
{
    return 0;
}
