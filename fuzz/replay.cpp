// Stands in for libFuzzer: gives every file of the folders named, in the order of their names, to
// the fuzz target. So the corpus is checked in every build, and a finding can be run again.

#include "fuzz/support.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QFile::decodeName(argv[i]));
        for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
                return EXIT_FAILURE;
            }
            std::printf("%s\n", qPrintable(name));
            std::fflush(stdout);
            const QByteArray input = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                                   static_cast<std::size_t>(input.size()));
            ++inputs;
        }
    }
    if (inputs == 0) {
        std::fprintf(stderr, "no inputs\n");
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
