// The input: the body of a status answer.

#include "fuzz/support.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "simulator/board/answerencoder.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace {

using namespace generalinformation;

constexpr int kLength = 50;
constexpr int kUndecodedFrom = 2;
constexpr int kUndecodedTo = 8;
constexpr int kPrimaryCurrentFrom = 42;
constexpr int kSecondaryCurrentFrom = 46;
constexpr int kMaxLoopState = 127;
constexpr int kMaxEarthState = 31;

bool isHex(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
}

/// The body as a board would have sent what could be read of it.
QByteArray canonical(QByteArray body)
{
    body.replace(kUndecodedFrom, kUndecodedTo - kUndecodedFrom, "000000");
    for (const int current : {kPrimaryCurrentFrom, kSecondaryCurrentFrom}) {
        if (!isHex(body.mid(current, 4))) {
            body.replace(current, 4, "0000");
        }
    }
    return body.toUpper();
}

void checkDecoding(const QByteArray& body, const LdbStatusDecoding& decoding)
{
    const bool isReadable = body.size() == kLength && isHex(body.left(kUndecodedFrom)) &&
                            isHex(body.mid(kUndecodedTo, kPrimaryCurrentFrom - kUndecodedTo));
    require(decoding.valid == isReadable, "valid is what is all digits up to the currents");
    if (decoding.valid) {
        require(answerencoder::status(decoding.status) == canonical(body),
                "encoding gives back what was decoded");
    } else if (body.size() != kLength) {
        require(answerencoder::status(decoding.status) == QByteArray(kLength, '0'),
                "an answer of another length gives nothing");
    }
}

void checkPort(const QList<QStringList>& rows, Row voltageRow, Row currentRow, quint8 portShort,
               quint16 millivolts, quint16 rawCurrent)
{
    if (portShort == 1 || portShort == 2) {
        for (const Row row : {voltageRow, currentRow}) {
            require(integer(rows, row) == kMissingMeasurement, "a short has no measurement");
            require(text(rows, row).startsWith(QLatin1String("Short")), "a short says so");
        }
        return;
    }
    const int current = rawCurrent < 0x8000 ? rawCurrent : rawCurrent - 0x10000;
    require(integer(rows, voltageRow, RawColumn) == millivolts, "millivolts stay as they are");
    require(integer(rows, currentRow, RawColumn) == current, "a current keeps its sign");
    // Six significant digits keep every millivolt and every hundredth of a milliampere.
    require(std::lround(number(rows, voltageRow) * 1000) == millivolts, "volts are millivolts");
    require(std::lround(number(rows, currentRow) * 100) == current, "milliamperes are exact");
    require(text(rows, voltageRow).endsWith(QLatin1String(" V")), "a voltage has its unit");
    require(text(rows, currentRow).endsWith(QLatin1String(" mA")), "a current has its unit");
}

void checkRows(const LdbStatus& status)
{
    const QList<QStringList> rows = buildRows(QStringLiteral("FD"), QStringLiteral("Hall"), status,
                                              QStringLiteral("2026-11-14: 21:15:30"),
                                              QStringLiteral("2026-11-14: 21:15:30:123"));
    require(rows.size() == RowCount, "there are all rows");
    require(integer(rows, ModeRow) == static_cast<int>(status.state), "the mode is the state");
    if (isLost(rows)) {
        for (int row = LoopRow; row <= AmplifierRow; ++row) {
            require(rows[row].constFirst() == kNoValue, "a lost LDB shows no value");
        }
        return;
    }
    for (const QStringList& row : rows) {
        require(row.size() > ValueColumn && !row.constFirst().isEmpty(),
                "every row has a text and a value");
    }
    const int loop = integer(rows, LoopRow);
    const int earth = integer(rows, EarthRow);
    require(loop >= 0 && loop <= kMaxLoopState, "loop code in range");
    require(earth >= 0 && earth <= kMaxEarthState, "earth code in range");
    require((text(rows, LoopRow) == QLatin1String("Ok")) == (loop == 0),
            "a loop is well only without any fault");
    checkPort(rows, PrimaryVoltageRow, PrimaryCurrentRow, status.primaryPortShort,
              status.primaryVoltage, status.primaryCurrent);
    checkPort(rows, SecondaryVoltageRow, SecondaryCurrentRow, status.secondaryPortShort,
              status.secondaryVoltage, status.secondaryCurrent);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray body = inputBytes(data, size);
    const LdbStatusDecoding decoding = decodeLdbStatus(body);
    checkDecoding(body, decoding);
    if (decoding.valid) {
        checkRows(decoding.status);
    }
    return 0;
}
