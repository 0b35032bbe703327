#pragma once

#include <QString>

/// Names that more than one folder needs: the program's identity, settings keys, file and resource
/// names. Plain immutable strings, safe to read from any thread.
namespace constants {

// The program's identity.
inline const QString kApplicationDisplayName = QStringLiteral("Tavro Cordex Sniffer");
inline const QString kProductFamilyName = QStringLiteral("Tavro");
inline const QString kApplicationName = QStringLiteral("TavroCordexSniffer");
// Of the desktop's menu entry and icon.
inline const QString kDesktopName = QStringLiteral("tavro-cordex-sniffer");
inline const QString kOrganisationName = QStringLiteral("Velmark");
inline const QString kApplicationVersion = QStringLiteral(APPLICATION_VERSION);

// Folders beside the program.
inline const QString kTranslationsFolder = QStringLiteral("translations");
inline const QString kResourcesFolder = QStringLiteral("resources");
inline const QString kLicensesFolder = QStringLiteral("licenses");
inline const QString kMessagesFolder = QStringLiteral("messages");
inline const QString kManualFolder = QStringLiteral("manual");

// Per-user settings: layout.
inline const QString kWindowGeometryKey = QStringLiteral("position/geometry");
inline const QString kWindowStateKey = QStringLiteral("position/windowState");
inline const QString kScreenGeometryKey = QStringLiteral("position/screenGeometry");
inline const QString kOverviewTableStateKey = QStringLiteral("position/deviceOverviewTableState");
inline const QString kLeftRightSplitterKey = QStringLiteral("position/leftAndRightLayoutSplitter");
// The capital L in "PLot" is part of the key: layouts already saved carry it.
inline const QString kOverviewPlotSplitterKey =
    QStringLiteral("position/deviceOverviewAndPLotSplitter");
inline const QString kPlotDetailSplitterKey = QStringLiteral("position/plotAndDetailSplitter");

// Per-user settings: what the overview shows.
inline const QString kOverviewFilterKey = QStringLiteral("overview/filter");
inline const QString kOverviewOnlyFaultsKey = QStringLiteral("overview/onlyFaults");
inline const QString kOverviewFaultsFirstKey = QStringLiteral("overview/faultsFirst");
inline const QString kOverviewLineQualityKey = QStringLiteral("overview/lineQuality");

// Per-user settings: which events the list shows.
inline const QString kEventsTextKey = QStringLiteral("events/text");
inline const QString kEventsLdbKey = QStringLiteral("events/ldb");
inline const QString kEventsGroupKey = QStringLiteral("events/group");
inline const QString kEventsPeriodKey = QStringLiteral("events/period");
inline const QString kEventsFromKey = QStringLiteral("events/from");
inline const QString kEventsToKey = QStringLiteral("events/to");

// Per-user settings: language, port, sound, log controls.
inline const QString kLanguageKey = QStringLiteral("translation/language");
inline const QString kDefaultLanguage = QStringLiteral("English");
inline const QString kComPortKey = QStringLiteral("serial/comPort");
inline const QString kKnownStartKey = QStringLiteral("serial/knownStart");
inline const QString kAudioWarningsKey = QStringLiteral("audio/audioWarnings");
inline const QString kLogPathKey = QStringLiteral("log/path");
inline const QString kLogIntervalKey = QStringLiteral("log/interval");
inline const QString kLogAllKey = QStringLiteral("log/all");

// Per-user settings: the recorder.
inline const QString kRecordingKey = QStringLiteral("recording/isOn");
inline const QString kRecordingFolderKey = QStringLiteral("recording/folder");
inline const QString kRecordingDaysKey = QStringLiteral("recording/days");
inline const QString kRecordingMegabytesKey = QStringLiteral("recording/megabytes");

// Translation files: TavroCordexSniffer_<language>.qm.
inline const QString kTranslationFileTemplate =
    QStringLiteral("%1%2").arg(kApplicationName, QStringLiteral("_%1.qm"));
inline const QString kTranslationFileFilter = QStringLiteral("*.qm");

// The tuning file: read only, resolved against the working directory.
inline const QString kTuningFileName = QStringLiteral("settings.ini");
inline const QString kTableSettingsGroup = QStringLiteral("TableSettings");
inline const QString kDisconnectedCountKey = QStringLiteral("SerialSettings/DISCONNECTED_COUNT");
inline const QString kIdentityEveryRoundsKey =
    QStringLiteral("SerialSettings/IDENTITY_EVERY_ROUNDS");
inline const QString kSelectedWithinKey = QStringLiteral("SerialSettings/SELECTED_WITHIN_MS");
inline const QString kBytesWrittenWaitTimeKey =
    QStringLiteral("SerialSettings/BYTES_WRITTEN_WAIT_TIME");
inline const QString kBytesReceivedWaitTimeKey =
    QStringLiteral("SerialSettings/BYTES_RECEIVED_WAIT_TIME");
inline const QString kClearSerialBusAfterWriteKey =
    QStringLiteral("SerialSettings/CLEAR_SERIAL_BUS_AFTER_WRITE");
inline const QString kShortDetectionCurrentKey =
    QStringLiteral("FimTracking/SHORT_DETECTION_CURRENT");
inline const QString kPrimaryFimStartupCurrentKey =
    QStringLiteral("FimTracking/PRIMARY_FIM_STARTUP_CURRENT");
inline const QString kSecondaryFimStartupCurrentKey =
    QStringLiteral("FimTracking/SECONDARY_FIM_STARTUP_CURRENT");
inline const QString kPlotRowsInOrderKey = QStringLiteral("MainWindowPlot/ROWS_IN_ORDER");

// Resources compiled into the program.
inline const QString kWarningSoundResource = QStringLiteral(":/music/resources/bleep.wav");
inline const QString kIconsResourceFolder = QStringLiteral(":/icons/resources");
// No such file exists, and that is meant: a language without a flag is listed with an empty icon.
inline const QString kDefaultIconResource = QStringLiteral(":/Icons/resources/defaultIcon.png");
inline const QString kLogoResourceTemplate =
    QStringLiteral(":/image/resources/%1LogoCompleteShadowSmall.png");
inline const QString kFrontPanelResource = QStringLiteral(":/image/resources/frontpanel.png");

} // namespace constants
