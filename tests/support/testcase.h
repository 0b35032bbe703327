#pragma once

#include "tests/support/sandbox.h"

#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QtTest>

#include <functional>
#include <optional>

/// Base of every test class. Each test function has a sandbox of its own. A warning or critical
/// message that nobody expected fails the function in which it comes.
class TestCase : public QObject
{
    Q_OBJECT
protected slots:
    // Run by Qt Test around every test function; an override calls the base.
    virtual void init();
    virtual void cleanup();

protected:
    std::optional<Sandbox> m_sandbox;
};

/// Expects warnings that match `pattern` while it lives; any number may come. At least one must,
/// unless it depends on the machine.
class ExpectWarning
{
public:
    enum class Need
    {
        MustCome,
        MayCome
    };

    explicit ExpectWarning(const char* pattern, Need need = Need::MustCome);
    ~ExpectWarning();
    ExpectWarning(const ExpectWarning&) = delete;
    ExpectWarning& operator=(const ExpectWarning&) = delete;

    bool matches(const QString& message);

private:
    QRegularExpression m_pattern;
    bool m_seen;
};

/// Runs the event loop until `condition` holds or the time is up; whether it held. Qt Test's own
/// waiting sleeps between looks, which makes a conversation over a line take seconds. In virtual
/// time the limit, too, is virtual: by default a scan and a few rounds of a small bus.
bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 100000);

/// How many seeds, minutes or other trials of a kind a test goes through: `all` of them where
/// SNIFFER_ALL_TRIALS is set, which takes minutes, `usual` otherwise.
int trials(int usual, int all);

/// The columns of a data table: addColumns<int, QString>("port", "text").
template <typename... Types, typename... Names>
void addColumns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

/// A data table and its rows: const Table<int, QString> row("port", "text"); row("first", 1, "a");
template <typename... Types>
class Table
{
public:
    template <typename... Names>
    explicit Table(Names... names)
    {
        addColumns<Types...>(names...);
    }
    void operator()(const char* tag, const Types&... values) const
    {
        (QTest::newRow(tag) << ... << values);
    }
};

#define WAIT_VERIFY(condition) QVERIFY2(waitUntil([&] { return (condition); }), #condition)
#define WAIT_COMPARE(actual, expected)                                                             \
    do {                                                                                           \
        waitUntil([&] { return (actual) == (expected); });                                         \
        QCOMPARE(actual, expected);                                                                \
    } while (false)
