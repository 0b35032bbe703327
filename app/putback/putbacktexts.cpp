#include "app/putback/putbacktexts.h"

#include "importexport/ldbfields.h"

#include <QCoreApplication>
#include <QLocale>

namespace putbacktexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PutBack)
};

QString nameOf(const QString& name)
{
    return name.isEmpty() ? Texts::tr("no name") : name;
}

QString dateOf(const KeptLdb& kept)
{
    return QLocale().toString(kept.since.toLocalTime(), QLocale::ShortFormat);
}

QString comparison(const LdbSettings& before, const LdbSettings& now)
{
    QStringList lines;
    for (const LdbField field : differingFields(before, now)) {
        lines.append(Texts::tr("%1: before %2, now %3")
                         .arg(fieldName(field), fieldValue(field, before), fieldValue(field, now)));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

BoxText offer(const KeptLdb& kept, const QString& hexId, const LdbSettings& now,
              const QString& failure)
{
    QString text = Texts::tr("LDB %1 (%2) has other settings than before the fault finding of %3.")
                       .arg(hexId, nameOf(now.name), dateOf(kept));
    if (!failure.isEmpty()) {
        text = Texts::tr("The former settings of LDB %1 are not restored: %2").arg(hexId, failure);
    }
    return {
        Texts::tr("Restore the former settings"),
        text,
        comparison(*kept.settings, now),
        {Texts::tr("Restore the former settings"), Texts::tr("Leave them"), Texts::tr("Later")}};
}

BoxText whetherSame(const KeptLdb& kept, const QString& hexId, const QString& name)
{
    QString text = kept.hexId == hexId
                       ? Texts::tr("Before fault finding, on %1, LDB %2 was called %3. Now it is "
                                   "called %4. Is it the same LDB?")
                             .arg(dateOf(kept), hexId, nameOf(kept.name), nameOf(name))
                       : Texts::tr("Before fault finding, on %1, LDB %2 was called %3. Now LDB %4 "
                                   "has this name. Is it the same LDB?")
                             .arg(dateOf(kept), kept.hexId, nameOf(kept.name), hexId);
    return {Texts::tr("Fault finding"),
            text,
            Texts::tr("If it is, its audio mute becomes what it was, and its settings are "
                      "compared."),
            {Texts::tr("The same LDB"), Texts::tr("Forget it"), Texts::tr("Another LDB")}};
}

BoxText staysMuted(const QString& hexId)
{
    return {Texts::tr("Attention"),
            Texts::tr("The audio mute of LDB %1 could not be ended.\n"
                      "The audio of this LDB stays muted.")
                .arg(hexId),
            Texts::tr("The program remembers it, and ends the mute as soon as the LDB takes it.")};
}

BoxText unreadable(const QString& problem)
{
    return {Texts::tr("Attention"),
            Texts::tr("What was kept of LDB's before fault finding cannot be read."),
            Texts::tr("%1\nAn LDB whose fault finding was broken off may still be muted, or have "
                      "default settings.")
                .arg(problem)};
}

BoxText otherLdb(const QString& hexId, const QString& name)
{
    return {Texts::tr("Attention"),
            Texts::tr("Nothing was restored: LDB %1 is now called %2.").arg(hexId, nameOf(name))};
}

QString muteRestored(const QString& hexId, bool isMuted)
{
    return isMuted
               ? Texts::tr("LDB %1 is muted again, as it was before the fault finding.").arg(hexId)
               : Texts::tr("The audio mute of LDB %1 from the fault finding has ended.").arg(hexId);
}

QString settingsRestored(const QString& hexId)
{
    return Texts::tr("LDB %1 has its former settings again.").arg(hexId);
}

QString settingsForgotten(const QString& hexId)
{
    return Texts::tr("LDB %1 keeps its settings; the former ones are forgotten.").arg(hexId);
}

QString cannotForget(const QString& hexId, const QString& reason)
{
    return Texts::tr("What was put back into LDB %1 will be put back again: %2").arg(hexId, reason);
}

} // namespace putbacktexts
