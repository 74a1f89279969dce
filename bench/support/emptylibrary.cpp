// The least that a library can be: one function that does nothing.
extern "C" int empty();

int empty()
{
    return 0;
}
