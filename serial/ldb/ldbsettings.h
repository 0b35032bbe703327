#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Index of a parameter that a `ChangeCommand` writes or a `RequestCommand` reads.
enum class LdbParameter : int
{
    Settings = 0x01,           ///< the whole settings record (read)
    Name = 0x02,               ///< read as 32 digits, written as the name's bytes
    NumberOfFims = 0x03,       ///< written
    Flags = 0x14,              ///< written
    AudioMute = 0x16,          ///< written
    OpenDetectionDelay = 0x17, ///< written
};

/// Index of an action that an `ExecuteCommand` starts.
enum class LdbAction : int
{
    Control = 0x00,       ///< FIM reset, LDB reset, ...: see `LdbControl`
    Status = 0x03,        ///< answers with the 50-character status
    FirmwareId = 0x04,    ///< answers with the firmware id
    StoreSettings = 0x06, ///< ends a series of written parameters
};

/// Data byte of `LdbAction::Control`.
enum class LdbControl : int
{
    FimReset = 0,
    LdbReset = 1,
    FactoryReset = 2,
    ServiceMode = 3
};

constexpr int kSettingsAnswerLength = 56;
constexpr int kMaxNameBytes = 15; ///< of the local 8-bit encoding; one of 16 ends the text

/// The stored settings of one LDB.
struct LdbSettings
{
    int address = 0; ///< bus address 1 to 253
    QString name;
    /// The name as it was read; nothing for one that was typed. It may be of another encoding.
    QByteArray nameBytes = {};
    bool generalFaultOutput = false;
    bool earthLeakageDetection = false;
    bool earthWireOpenDetection = false;
    bool startInServiceMode = false;
    bool amplifierDetection = false;
    bool audioMute = false;
    quint16 openDetectionDelay = 0; ///< 0 switches open detection off
    quint16 numberOfFims = 0;
    quint8 furtherByte = 0; ///< kept as received, not shown

    bool openDetection() const { return openDetectionDelay != 0; }
};

/// Decodes the answer to a request of `LdbParameter::Settings`; nothing unless it is 56 characters
/// long and every field is a number.
std::optional<LdbSettings> decodeLdbSettings(const QByteArray& answer);
/// The same; nothing either when the record is another LDB's.
std::optional<LdbSettings> decodeLdbSettings(const QByteArray& answer, const QString& hexId);

/// The firmware id out of the answer to `LdbAction::FirmwareId`; nothing unless the answer is
/// longer than 10 hexadecimal digits and holds no zero byte.
std::optional<QString> decodeFirmwareId(const QByteArray& answer);

/// Whether an LDB can store `name`: at most `kMaxNameBytes` of the local 8-bit encoding, in which
/// every character exists, and no zero character, which would end it.
bool isStorableName(const QString& name);

// Value texts of the five parameters that can be written, as they stand in a `ChangeCommand`.
QByteArray encodeName(const QString& name);
/// The bytes that were read, where the name is still theirs.
QByteArray encodeName(const LdbSettings& settings);
QByteArray encodeFlags(const LdbSettings& settings);
QByteArray encodeAudioMute(bool muted);
/// Delay and FIM count: low byte first. Values above 255 give more than four digits, which is what
/// the boards have always been sent.
QByteArray encodeSwappedWord(quint16 value);
