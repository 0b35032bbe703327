#include "tests/recording/victim.h"

#include <QCoreApplication>
#include <QTextStream>

/// Records into the folder named, from the exchange numbered on, until it is killed. Says how many
/// there are whenever some more are on the disk.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    RecordWriter writer(optionsFor(arguments.value(1)));
    int number = arguments.value(2).toInt();
    QTextStream out(stdout);
    for (;;) {
        RecorderInputs inputs;
        for (int i = 0; i < victim::kBatch; ++i) {
            inputs.push_back(input::Told{victim::exchangeOf(number++), 0});
        }
        writer.take(inputs);
        out << number << '\n';
        out.flush();
    }
}
