#include "tests/support/testprogram.h"

#include <QFileInfo>

#include <cstdio>
#include <map>

namespace {

std::map<QString, RegisteredTest::Run>& registry()
{
    static std::map<QString, RegisteredTest::Run> tests;
    return tests;
}

} // namespace

RegisteredTest::RegisteredTest(const char* sourceFile, Run run)
{
    registry()[QFileInfo(QString::fromLocal8Bit(sourceFile)).baseName()] = run;
}

int main(int argc, char* argv[])
{
    const auto test =
        argc > 1 ? registry().find(QString::fromLocal8Bit(argv[1])) : registry().end();
    if (test == registry().end()) {
        std::fprintf(stderr, "Usage: %s TEST [OPTION...], where TEST is one of\n", argv[0]);
        for (const auto& [name, run] : registry()) {
            std::fprintf(stderr, "    %s\n", qPrintable(name));
        }
        return 2;
    }
    argv[1] = argv[0];
    return test->second(argc - 1, argv + 1);
}
