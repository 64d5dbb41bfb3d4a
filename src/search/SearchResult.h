#pragma once

#include <QString>

/// One hit of a search in files. A value; its texts are shared with the other hits of the file.
struct SearchResult
{
    QString filePath; ///< absolute; of a buffer that of its backing file
    QString fileName; ///< as the results show it
    QString lineText; ///< the whole line without white space around it
    int position = 0; ///< in the whole text, each line break counting one
    int column = 0; ///< in `lineText`; below 0 where the hit begins in the white space before it
    int length = 0;
};
