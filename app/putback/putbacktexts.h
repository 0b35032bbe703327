#pragma once

#include "app/notices/messagebox.h"
#include "history/keptldbs.h"

#include <QString>

/// What is said while an LDB gets back what fault finding has changed. Pure functions; texts in the
/// language in force.
namespace putbacktexts {

/// Offers the former settings; `failure`: why the last try did not succeed, empty before it.
BoxText offer(const KeptLdb& kept, const QString& hexId, const LdbSettings& now,
              const QString& failure);
/// The choices of the offer, in order.
enum class Offered : int
{
    Restore,
    Leave,
    Later
};

/// Asks whether an LDB of which only the address or only the name agrees is the kept one.
BoxText whetherSame(const KeptLdb& kept, const QString& hexId, const QString& name);
enum class Same : int
{
    Yes,
    Forget,
    No
};

/// The mute of a run could not be ended.
BoxText staysMuted(const QString& hexId);

/// What was kept cannot be read; `problem` says why.
BoxText unreadable(const QString& problem);

/// The LDB has another name than when it was asked whether its settings shall be restored.
BoxText otherLdb(const QString& hexId, const QString& name);

QString muteRestored(const QString& hexId, bool isMuted);
QString settingsRestored(const QString& hexId);
QString settingsForgotten(const QString& hexId);
/// The file cannot be written, so what was put back would be put back again.
QString cannotForget(const QString& hexId, const QString& reason);

} // namespace putbacktexts
