#include "benchmarks/badline/journalreader.h"

#include "serial/wire/framecodec.h"
#include "simulator/line/linetime.h"

#include <QDateTime>

#include <algorithm>

namespace {

enum JournalColumn : int
{
    TimeColumn = 0,
    SinceColumn,
    MarkColumn,
    HexIdColumn,
    BytesColumn,
    TextColumn
};

constexpr double kByteMs =
    static_cast<double>(linetime::kByte) / static_cast<double>(linetime::kMillisecond);
/// So long can a request have waited for a free line since the program handed it over: as long as
/// a burst takes.
constexpr double kHandOverMs = 30;
/// What comes so soon behind an answer can be read together with it.
constexpr double kSameReadMs = 20;
constexpr int kExcerptLines = 12;

const char* const kHarms[] = {"[flipped bit]", "[garbled]", "[lost]", "[overlapped]", "[absent]"};

bool isHarmed(const QByteArray& text)
{
    return std::any_of(std::begin(kHarms), std::end(kHarms),
                       [&text](const char* harm) { return text.contains(harm); });
}

bool isPolling(const QByteArray& request)
{
    // What is asked follows the sender and the receiver behind the SOH.
    constexpr int kQuestion = 5;
    constexpr int kQuestionLength = 6;
    const QByteArray question = request.mid(kQuestion, kQuestionLength);
    return question == "737803" || question == "737202" || question == "737804";
}

qint64 delayOf(const BusBook::Line& line, qint64 leastDelay)
{
    return line.wall - static_cast<qint64>(line.since) - leastDelay;
}

class JournalReader
{
public:
    void takeLine(const QByteArray& line);
    BusBook takeBook() { return std::move(m_book); }

private:
    void takeRequest(const QString& hexId, const QByteArray& frame, double end, qint64 wall);
    void takeAnswer(const QString& hexId, QByteArray frame, double end, qint64 wall);
    void takeStrays(int count, double end);
    void markAmongStrays();

    BusBook m_book;
    QByteArray m_request; ///< the last one
    QString m_asked;      ///< whom it asked, if it was a question of the polling
    double m_handedOver = 0;
    double m_lastStray = -kSameReadMs;
    double m_lastAnswer = -kSameReadMs;
    bool m_isLastAnswerStatus = false;
};

void JournalReader::takeLine(const QByteArray& line)
{
    const QByteArrayList columns = line.split('\t');
    const QDateTime time = QDateTime::fromString(QString::fromLatin1(columns.value(TimeColumn)),
                                                 QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    if (columns.size() <= TextColumn || !time.isValid()) {
        qFatal("no line of a journal: %s", line.constData());
    }
    const qint64 wall = time.toMSecsSinceEpoch();
    const double since = columns.at(SinceColumn).toDouble();
    const QByteArray& mark = columns.at(MarkColumn);
    const QByteArray bytes = QByteArray::fromHex(columns.at(BytesColumn));
    const QString hexId = QString::fromLatin1(columns.at(HexIdColumn));
    const qint64 delay = wall - static_cast<qint64>(since);
    m_book.leastDelay = m_book.lines.empty() ? delay : std::min(m_book.leastDelay, delay);
    m_book.lines.push_back({wall, line, since});
    const bool isHarmedOne = isHarmed(columns.at(TextColumn));
    m_book.harmed += isHarmedOne ? 1 : 0;
    if (mark == ">") {
        takeRequest(hexId, bytes, since, wall);
    } else if (mark == "<" && !isHarmedOne) {
        takeAnswer(hexId, bytes, since, wall);
    } else if (mark == "#" && !bytes.isEmpty()) {
        takeStrays(bytes.size(), since);
    }
}

void JournalReader::takeRequest(const QString& hexId, const QByteArray& frame, double end,
                                qint64 wall)
{
    const bool isRepeated = frame == m_request;
    m_request = frame;
    m_handedOver = end - frame.size() * kByteMs - kHandOverMs;
    m_asked = isPolling(frame) ? hexId : QString();
    if (m_asked.isEmpty()) {
        return;
    }
    std::vector<BusBook::Question>& questions = m_book.questions[hexId];
    if (!isRepeated) {
        questions.emplace_back();
    }
    questions.back().wall = wall;
}

void JournalReader::takeAnswer(const QString& hexId, QByteArray frame, double end, qint64 wall)
{
    m_lastAnswer = end;
    m_isLastAnswerStatus = false;
    if (hexId != m_asked || !framecodec::responseValidation(frame)) {
        return;
    }
    m_book.questions[hexId].back().fate = BusBook::Question::Fate::Answered;
    const LdbStatusDecoding decoded = decodeLdbStatus(frame);
    if (decoded.valid) {
        m_isLastAnswerStatus = true;
        m_book.sent[hexId].push_back({wall, decoded.status, false});
    }
    if (m_lastStray >= m_handedOver) {
        markAmongStrays();
    }
}

void JournalReader::takeStrays(int count, double end)
{
    m_book.strays += count;
    m_lastStray = end;
    if (!m_asked.isEmpty() && end - count * kByteMs <= m_lastAnswer + kSameReadMs &&
        m_lastAnswer > m_handedOver) {
        markAmongStrays();
    }
}

/// The last answer, which is one to the last question.
void JournalReader::markAmongStrays()
{
    BusBook::Question& question = m_book.questions[m_asked].back();
    if (question.fate == BusBook::Question::Fate::Answered) {
        question.fate = BusBook::Question::Fate::AmongStrays;
    }
    if (m_isLastAnswerStatus) {
        m_book.sent[m_asked].back().isAmongStrays = true;
    }
}

} // namespace

int BusBook::harmedInARow(const QString& hexId, qint64 wall) const
{
    int count = 0;
    const std::vector<Question> asked = questions.value(hexId);
    for (auto question = asked.rbegin(); question != asked.rend(); ++question) {
        if (question->wall <= wall && question->fate == Question::Fate::Answered) {
            break;
        }
        count += question->wall <= wall && question->fate == Question::Fate::Harmed ? 1 : 0;
    }
    return count;
}

qint64 BusBook::longestDelay() const
{
    qint64 longest = 0;
    for (const Line& line : lines) {
        longest = std::max(longest, delayOf(line, leastDelay));
    }
    return longest;
}

QByteArray BusBook::excerpt(qint64 wall) const
{
    const auto end =
        std::upper_bound(lines.begin(), lines.end(), wall,
                         [](qint64 time, const Line& line) { return time < line.wall; });
    QByteArray text;
    for (auto line = end - std::min<std::ptrdiff_t>(kExcerptLines, end - lines.begin());
         line != end; ++line) {
        text +=
            "    +" + QByteArray::number(delayOf(*line, leastDelay)) + " ms " + line->text + '\n';
    }
    return text;
}

BusBook readJournal(const QByteArray& journal)
{
    JournalReader reader;
    for (const QByteArray& line : journal.split('\n')) {
        if (!line.isEmpty()) {
            reader.takeLine(line);
        }
    }
    return reader.takeBook();
}
