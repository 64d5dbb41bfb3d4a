#include <maya/MIOStream.h>

void StreamsAlone()
{
    cout << "x" << endl;
    cerr << "x" << flush;
}
