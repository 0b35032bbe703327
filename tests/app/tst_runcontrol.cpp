#include "app/window/runcontrol.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LinkSituation)

namespace {

LinkSituation polling(LdbState state = LdbState::Quiescent)
{
    LinkSituation situation;
    situation.running = true;
    situation.selected = true;
    situation.state = state;
    return situation;
}

LinkSituation with(LinkSituation situation, bool LinkSituation::*member, bool value = true)
{
    situation.*member = value;
    return situation;
}

/// A letter for each group of controls that can be used.
QString letters(const EnabledControls& controls)
{
    QString text;
    text += controls.reload ? "R" : QString();
    text += controls.transfer ? "T" : QString();
    text += controls.selection ? "S" : QString();
    text += controls.allActions ? "A" : QString();
    text += controls.singleActions ? "1" : QString();
    text += controls.settings ? "E" : QString();
    text += controls.outsideService ? "M" : QString();
    return text;
}

} // namespace

class TestRunControl : public TestCase
{
    Q_OBJECT
private slots:
    void situations_data()
    {
        // Reload, Transfer, Selection, All, 1 = single, E = settings, M = what service mode forbids
        const Table<LinkSituation, QString> row("situation", "enabled");
        using S = LinkSituation;
        row("stopped", S(), "R");
        row("stopped, LDB still ticked", with(polling(), &S::running, false), "R");
        row("scanning", with(polling(), &S::initialising), {});
        row("nothing ticked yet", with(polling(LdbState::Disconnected), &S::selected, false),
            "RTSA");
        row("resting", polling(), "RTSA1EM");
        row("booting", polling(LdbState::Booting), "RTSA1EM");
        row("fault", polling(LdbState::Fault), "RTSA1EM");
        row("service mode", polling(LdbState::ServiceMode), "RTSA1E");
        row("ticked LDB lost", polling(LdbState::Disconnected), "RTSA");
        row("saving", with(polling(), &S::saving), "RT");
        row("exporting", with(polling(), &S::transferring), "S");
        row("exporting in service mode", with(polling(LdbState::ServiceMode), &S::transferring),
            "S");
        row("site not certain", with(polling(), &S::unsettled), "RS");
        row("fault finding", with(polling(), &S::faultFinding), "S");
        row("scanning while exporting", with(with(polling(), &S::transferring), &S::initialising),
            {});
    }

    void situations()
    {
        QFETCH(LinkSituation, situation);
        QTEST(letters(enabledControls(situation)), "enabled");
    }

    void reasons_data()
    {
        // Of FIM tracking, which needs most, and of the actions for all
        const Table<LinkSituation, QString, QString> row("situation", "tracking", "all");
        using S = LinkSituation;
        const QString stopped = "Nothing is monitored: click Start first.";
        const QString scanning = "The bus is being scanned: wait until all LDB's are found.";
        const QString saving = "Settings are being saved: wait until the LDB has them.";
        const QString transferring = "Settings are being exported or imported: wait for the end.";
        row("stopped", S(), stopped, stopped);
        row("scanning", with(polling(LdbState::Disconnected), &S::initialising), scanning,
            scanning);
        row("nothing ticked", with(polling(LdbState::Disconnected), &S::selected, false),
            "No LDB is selected.", {});
        row("lost", polling(LdbState::Disconnected), "The selected LDB is not connected.", {});
        row("saving", with(polling(), &S::saving), saving, saving);
        row("importing", with(polling(), &S::transferring), transferring, transferring);
        const QString finding = "Fault finding is under way: wait for its end, or stop it.";
        row("fault finding", with(polling(), &S::faultFinding), finding, finding);
        row("service mode", polling(LdbState::ServiceMode),
            "The selected LDB is in service mode: end it with LDB Reset first.", {});
        row("resting", polling(), {}, {});
    }

    void reasons()
    {
        QFETCH(LinkSituation, situation);
        const EnabledControls controls = enabledControls(situation);
        QTEST(hindranceText(controls.outsideService.hindrance), "tracking");
        QTEST(hindranceText(controls.allActions.hindrance), "all");
    }
};

REGISTER_TEST(TestRunControl, QCoreApplication)

#include "tst_runcontrol.moc"
