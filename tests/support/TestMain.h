#pragma once

#include "support/Compare.h"
#include "support/Rows.h"

#include <QObject>

#include <functional>
#include <memory>

/// Lets one program hold several test classes, each of which is an entry of its own in the test
/// list: `tst_mel ClassName [Qt Test arguments]` runs one class, without a name all of them.
class TestRegistry
{
public:
    using Factory = std::function<std::unique_ptr<QObject>()>;

    static int Add(const char* className, Factory factory);
    static int Run(int argc, char** argv);
};

/// At the end of a class's .cpp file, before its moc include.
#define TE2_TEST(Class)                                                                            \
    static const int registered##Class                                                             \
        = TestRegistry::Add(#Class, [] { return std::make_unique<Class>(); });
