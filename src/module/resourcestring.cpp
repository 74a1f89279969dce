#include "module/resourcestring.h"

QuString qumdQuResourceString(unsigned int id)
{
    QuString text(L"");
    text.loadString(id);
    return text;
}
