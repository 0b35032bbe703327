#include "tests/app/screenset.h"
int main()
{
    return 0;
}
