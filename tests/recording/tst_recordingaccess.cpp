#include "recording/recordingaccess.h"
#include "recording/recordwriter.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QEventLoop>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

/// A folder with so many exchanges.
void record(const QString& folder, int exchanges)
{
    RecordedBus bus(QDateTime({2026, 3, 4}, {10, 0}));
    RecordWriter writer(optionsFor(folder));
    bus.start({"03"});
    bus.beginRound();
    for (int i = 0; i < exchanges; ++i) {
        bus.status("03");
    }
    bus.stop();
    writer.take(bus.take());
    writer.finish();
}

std::size_t count(RecordingReader& reader)
{
    return reader.exchanges({}, kAll).size();
}

} // namespace

/// The reading thread, with its real one: each test waits for an answer, and for no time.
class TestRecordingAccess : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_sandbox = std::make_unique<Sandbox>();
        record(m_sandbox->path("one"), 3);
        record(m_sandbox->path("two"), 7);
    }
    void cleanup() override
    {
        m_sandbox.reset();
        TestCase::cleanup();
    }

    void answersInOrder()
    {
        RecordingAccess access;
        access.setPath(m_sandbox->path("one"));
        QStringList answers;
        const auto note = [&answers](const QString& text) {
            answers.append(text);
        };
        access.ask(this, count, [&](std::size_t n) { note(QString::number(n)); });
        access.ask(
            this, [](RecordingReader&) { return QStringLiteral("text"); }, note);
        {
            const QObject gone;
            access.ask(const_cast<QObject*>(&gone), count, [&](std::size_t) { note("gone"); });
        }
        access.ask(
            this, [](RecordingReader& reader) { return reader.runs(kAll).size(); },
            [&](std::size_t n) {
                note(QString::number(n));
                m_loop.quit();
            });
        QVERIFY(answers.isEmpty());
        m_loop.exec();
        QCOMPARE(answers, QStringList({"3", "text", "1"}));
    }

    void forgetsWhatWasAskedOfTheFormerPath()
    {
        RecordingAccess access;
        access.setPath(m_sandbox->path("one"));
        std::vector<std::size_t> answers;
        access.ask(this, count, [&](std::size_t n) { answers.push_back(n); });
        access.setPath(m_sandbox->path("two"));
        access.ask(this, count, [&](std::size_t n) {
            answers.push_back(n);
            access.setPath({});
            access.ask(this, count, [&](std::size_t none) {
                answers.push_back(none);
                m_loop.quit();
            });
        });
        m_loop.exec();
        QCOMPARE(answers, std::vector<std::size_t>({7, 0}));
    }

    void seesWhatHasComeSince()
    {
        RecordingAccess access;
        access.setPath(m_sandbox->path("three")); // not there yet
        std::vector<std::size_t> answers;
        access.ask(this, count, [&](std::size_t n) {
            answers.push_back(n);
            record(m_sandbox->path("three"), 5);
            access.ask(this, count, [&](std::size_t later) {
                answers.push_back(later);
                m_loop.quit();
            });
        });
        m_loop.exec();
        QCOMPARE(answers, std::vector<std::size_t>({0, 5}));
    }

    void tellsOnceWhatCannotBeRead()
    {
        const QString path = m_sandbox->path("one/recording-2026-03-04.sqlite");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no recording at all") > 0);
        file.close();
        RecordingAccess access;
        std::vector<RecordingNotice::Kind> told;
        connect(&access, &RecordingAccess::noticeGiven, this,
                [&told](const RecordingNotice& notice) { told.push_back(notice.kind); });
        access.setPath(m_sandbox->path("one"));
        for (int i = 0; i < 3; ++i) {
            access.ask(this, count, [&, i](std::size_t n) {
                QCOMPARE(n, std::size_t(0));
                if (i == 2) {
                    QMetaObject::invokeMethod(&m_loop, &QEventLoop::quit, Qt::QueuedConnection);
                }
            });
        }
        m_loop.exec();
        QCOMPARE(told, std::vector<RecordingNotice::Kind>({RecordingNotice::Kind::CannotRead}));
    }

private:
    std::unique_ptr<Sandbox> m_sandbox;
    QEventLoop m_loop;
};

REGISTER_TEST(TestRecordingAccess, QCoreApplication)
#include "tst_recordingaccess.moc"
