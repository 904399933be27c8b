#include "faultinjection_helpers.h"

#include "fieldpicker/interaction_menus.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/EnumFilterValue.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/NumberFilterValue.h>
#include <PickerCtl/OwnerPicker.h>
#include <PickerCtl/TemplateFields.h>
#include <PickerCtl/TimeFilterValue.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/XNumberFilter.h>
#include <PickerCtl/XTechnologies.h>
#include <PickerCtl/XTimeFilter.h>
#include <PickerCtl/XTreeOpt.h>
#include <PickerCtl/testing/ScriptedMessageService.h>
#include <PickerCtl/testing/ScriptedOwnerPicker.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QTest>
#include <QTreeView>

#include <algorithm>

using namespace PickerCtl;
using namespace FaultTest;

namespace {

/**
 * Counts the exceptions that reach the event loop. Qt cannot carry an exception through its event
 * dispatch: in a real host each of these ends the process.
 */
class GuardedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (...) {
            ++escaped;
            return false;
        }
    }

    int escaped = 0;
};

GuardedApplication *guardedApp()
{
    return static_cast<GuardedApplication *>(QCoreApplication::instance());
}

const QString App = QStringLiteral("Reports");

/// The catalogue, services and controls of one run; the controls go before the services.
struct Rig
{
    Rig()
    {
        UserSpec admin;
        admin.id = 1;
        admin.name = QStringLiteral("admin");
        admin.administrator = true;
        FieldCatalog::setInstance(catalog);
        AppServices::setInstance(services);
        MessageService::setInstance(messages);
        OwnerPicker::setInstance(owners);
        UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(admin)));
    }

    ~Rig()
    {
        picker.reset();
        technologies.reset();
        numberFilter.reset();
        timeFilter.reset();
        enumFilter.reset();
        expTemplate.reset();
        FieldCatalog::setInstance(nullptr);
        AppServices::setInstance(nullptr);
        MessageService::setInstance(nullptr);
        OwnerPicker::setInstance(nullptr);
        UserContext::setInstance(nullptr);
    }

    FaultPlanPtr plan = std::make_shared<FaultPlan>();
    std::shared_ptr<FaultyCatalog> catalog = std::make_shared<FaultyCatalog>(sampleCatalog(), plan);
    std::shared_ptr<FaultyServices> services = std::make_shared<FaultyServices>(plan);
    // Every question is answered Yes: skip the UDCs of others, accept a doubtful template.
    std::shared_ptr<ScriptedMessageService> messages =
        std::make_shared<ScriptedMessageService>(QList<qint32>{}, MessageService::AnswerYes);
    std::shared_ptr<ScriptedOwnerPicker> owners = std::make_shared<ScriptedOwnerPicker>();
    std::unique_ptr<XFieldPicker> picker;
    std::unique_ptr<XTechnologies> technologies;
    std::unique_ptr<XNumberFilter> numberFilter;
    std::unique_ptr<XTimeFilter> timeFilter;
    std::unique_ptr<XEnumFilter> enumFilter;
    std::unique_ptr<XExpTemplate> expTemplate;
    std::shared_ptr<ListViewProperties> statusList;
    PropertyFilterPtr statusFilter;
    /// What the last run of an operation answered.
    QString answer;
};

/// One public operation: set up without failures, run (the part that may fail), then describe
/// what the control shows, without failures.
struct Operation
{
    QString name;
    std::function<void(Rig &)> prepare;
    std::function<void(Rig &)> run;
    std::function<QString(Rig &)> observe;
};

QString pickerState(Rig &r)
{
    if (!r.picker)
        return QStringLiteral("no control");
    return QStringList{r.picker->SelectedCategory(), QString::number(r.picker->ListCount()),
                       r.picker->IsDataValid() ? QStringLiteral("valid") : QStringLiteral("invalid")}
        .join(QLatin1Char('|'));
}

void pickerShowing(Rig &r, const QString &category)
{
    r.picker = std::make_unique<XFieldPicker>();
    r.picker->resize(500, 300);
    r.picker->Load(App, category);
}

void pickerShown(Rig &r)
{
    pickerShowing(r, QStringLiteral("Cell"));
    r.picker->show();
    QVERIFY(QTest::qWaitForWindowExposed(r.picker.get()));
}

/// The check values of an option tree's nodes, in order.
QString ticksOf(const XTreeOpt &tree)
{
    QString ticks;
    for (int index = 1; index <= tree.Count(); ++index)
        ticks += QString::number(tree.CheckValueAt(index));
    return ticks;
}

QString techState(Rig &r)
{
    return r.answer + QLatin1Char('|') + ticksOf(*r.technologies->tree());
}

void techBuilt(Rig &r)
{
    r.technologies = std::make_unique<XTechnologies>();
    r.technologies->InitializeTechnologyTypes();
    r.technologies->SetMask(QStringLiteral("GL"));
}

void numberLoaded(Rig &r)
{
    r.numberFilter = std::make_unique<XNumberFilter>();
    auto value = std::make_shared<NumberFilterValue>();
    value->setMinValue(QStringLiteral("5"));
    value->setMaxValue(QStringLiteral("10"));
    r.numberFilter->SetFilter(value, 0, 0, 100);
}

void timeLoaded(Rig &r)
{
    r.timeFilter = std::make_unique<XTimeFilter>();
    auto value = std::make_shared<TimeFilterValue>();
    value->setIsRelative(true);
    value->setRelativeUnit(TimeFilterValue::Days);
    value->setRelativeCount(3);
    r.timeFilter->SetDateFilter(value);
}

void enumCreated(Rig &r)
{
    r.enumFilter = std::make_unique<XEnumFilter>();
    r.statusList = std::make_shared<ListViewProperties>();
    r.statusList->setTitle(QStringLiteral("Status"));
    r.statusFilter = r.catalog->GetPropertyFilter();
}

void enumLoaded(Rig &r)
{
    enumCreated(r);
    auto value = std::make_shared<EnumFilterValue>();
    value->setSelection(QStringLiteral("I"));
    r.enumFilter->SetFilter(value, App, r.statusList, r.statusFilter);
}

QString enumState(Rig &r)
{
    return r.answer + QLatin1Char('|') + ticksOf(*r.enumFilter->tree());
}

constexpr qint32 Analyst = 5;

FieldSpec udc(qint32 id, const QString &name, qint32 owner)
{
    FieldSpec spec;
    spec.id = id;
    spec.categoryKey = QStringLiteral("CELL");
    spec.name = name;
    spec.typeCode = QStringLiteral("UDC");
    spec.ownerId = owner;
    spec.techMask = QStringLiteral("G");
    return spec;
}

CurrentUserPtr userOf(Rig &r, qint32 id)
{
    for (const CurrentUserPtr &user : r.catalog->inner()->Users()) {
        if (user->UserId() == id)
            return user;
    }
    return nullptr;
}

/// "Cell" with two more UDCs, "Mine" (20) of an analyst and "Theirs" (21) of the administrator,
/// all of it selected.
void udcsSelected(Rig &r, bool asAnalyst)
{
    r.catalog->inner()->addUser({Analyst, QStringLiteral("analyst"), false, true, false});
    r.catalog->inner()->addField(udc(20, QStringLiteral("Mine"), Analyst));
    r.catalog->inner()->addField(udc(21, QStringLiteral("Theirs"), 1));
    if (asAnalyst)
        UserContext::setInstance(std::make_shared<FixedUserContext>(userOf(r, Analyst)));
    pickerShowing(r, QStringLiteral("Cell"));
    r.picker->SelectAll();
}

/// The owners of the fields 10 (the administrator's), 20 and 21, "-" for one that is gone.
QString udcOwners(Rig &r)
{
    QStringList owners;
    for (const qint32 id : {10, 20, 21}) {
        const FieldPtr field = r.catalog->inner()->GetField(App, id);
        owners.append(field ? QString::number(field->OwnerId()) : QStringLiteral("-"));
    }
    return pickerState(r) + QLatin1Char('|') + owners.join(QLatin1Char(','));
}

QString pickerSelection(Rig &r)
{
    return pickerState(r) + QLatin1Char('|') + QString::number(r.picker->SelectionCount());
}

FieldsPtr catalogFields(Rig &r, const QList<qint32> &ids)
{
    auto fields = Fields::create();
    for (const qint32 id : ids)
        fields->Add(r.catalog->inner()->GetField(App, id));
    return fields;
}

void pickerMenusReady(Rig &r)
{
    pickerShown(r);
    r.picker->setAllowContextMenu(true);
    r.picker->SelectAll();
    auto *menus = r.picker->findChild<fieldpicker::ContextMenus *>();
    QVERIFY(menus);
    // A menu is recorded, not shown: a shown menu would wait for the user.
    menus->setPopupExecutor([&r](QMenu *menu, const QPoint &) { r.answer += menu->objectName(); });
}

XStaticList *templateList(Rig &r, const QString &name)
{
    return r.expTemplate->findChild<XStaticList *>(name);
}

/// The fields found, then the template's fields by id.
QString templateState(Rig &r)
{
    if (!r.expTemplate)
        return QStringLiteral("no control");
    QStringList ids;
    for (const FieldPtr &field : *templateList(r, QStringLiteral("stlSelected"))->Items())
        ids.append(QString::number(field->Id()));
    return QString::number(templateList(r, QStringLiteral("stlAvailable"))->Count()) + QLatin1Char('|')
        + ids.join(QLatin1Char(','));
}

QString templateAnswer(Rig &r)
{
    return r.answer + QLatin1Char('|') + templateState(r);
}

TemplateFieldsPtr templateOf(Rig &r, const QList<qint32> &ids)
{
    auto fields = TemplateFields::create();
    for (const qint32 id : ids) {
        auto item = std::make_shared<TemplateField>();
        item->setField(r.catalog->inner()->GetField(App, id));
        fields->Add(item);
    }
    return fields;
}

void templateLoaded(Rig &r)
{
    r.expTemplate = std::make_unique<XExpTemplate>();
    r.expTemplate->resize(700, 400);
    r.expTemplate->Load(App, QStringLiteral("Cell"), templateOf(r, {12}));
}

void templateShown(Rig &r)
{
    templateLoaded(r);
    r.expTemplate->show();
    QVERIFY(QTest::qWaitForWindowExposed(r.expTemplate.get()));
}

void clickButton(Rig &r, const char *name)
{
    auto *button = r.expTemplate->findChild<QAbstractButton *>(QLatin1String(name));
    QVERIFY(button);
    button->click();
}

/// Drops a field browser's payload of the field 10 at the end of the template, as a drag does.
void dropOnTemplate(Rig &r)
{
    FieldClipData clip;
    clip.setFormatId(ClipboardFormats::Register(clipboardFormatName(App, QStringLiteral("Fields"), currentThreadId())));
    clip.setFields(catalogFields(r, {10}));
    const std::unique_ptr<QMimeData> data = renderFieldClipData(clip);
    QWidget *viewport = templateList(r, QStringLiteral("stlSelected"))->reportView()->viewport();
    const QPoint at(10, viewport->height() - 2);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
    QDropEvent drop(at, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &drop);
}

Operation pickerSetter(const QString &name, std::function<void(XFieldPicker &)> set)
{
    return {QStringLiteral("XFieldPicker ") + name,
            [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
            [set](Rig &r) { set(*r.picker); }, pickerState};
}

const QList<Operation> &operations()
{
    static const QList<Operation> all = {
        {QStringLiteral("XFieldPicker constructor"), [](Rig &) {},
         [](Rig &r) { r.picker = std::make_unique<XFieldPicker>(); }, pickerState},
        {QStringLiteral("XFieldPicker Load"), [](Rig &r) { r.picker = std::make_unique<XFieldPicker>(); },
         [](Rig &r) { r.picker->Load(App, QStringLiteral("Cell")); }, pickerState},
        {QStringLiteral("XFieldPicker Load of a single branch"),
         [](Rig &r) {
             r.picker = std::make_unique<XFieldPicker>();
             r.picker->setSingleBranch(tplSingle);
         },
         [](Rig &r) { r.picker->Load(App, QStringLiteral("Cell")); }, pickerState},
        {QStringLiteral("XFieldPicker Load of another category"),
         [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) { r.picker->Load(App, QStringLiteral("Traffic")); }, pickerState},
        {QStringLiteral("XFieldPicker Refresh"), [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) { r.picker->Refresh(); }, pickerState},
        pickerSetter(QStringLiteral("SelectedCategory"),
                     [](XFieldPicker &p) { p.setSelectedCategory(QStringLiteral("Region")); }),
        pickerSetter(QStringLiteral("TechFilter"), [](XFieldPicker &p) { p.setTechFilter(QStringLiteral("L")); }),
        pickerSetter(QStringLiteral("FieldTypeFilter"),
                     [](XFieldPicker &p) { p.setFieldTypeFilter(QStringLiteral("CNT")); }),
        pickerSetter(QStringLiteral("OwnerFilter"), [](XFieldPicker &p) { p.setOwnerFilter(QStringLiteral("1")); }),
        pickerSetter(QStringLiteral("NameFilter"), [](XFieldPicker &p) { p.setNameFilter(QStringLiteral("Call")); }),
        pickerSetter(QStringLiteral("RcvFormFilter"),
                     [](XFieldPicker &p) { p.setRcvFormFilter(QStringLiteral("Form")); }),
        pickerSetter(QStringLiteral("RcvFieldFilter"),
                     [](XFieldPicker &p) { p.setRcvFieldFilter(QStringLiteral("Field")); }),
        pickerSetter(QStringLiteral("UseForBusyHour"), [](XFieldPicker &p) { p.setUseForBusyHour(true); }),
        pickerSetter(QStringLiteral("LoadProperties"), [](XFieldPicker &p) { p.LoadProperties(); }),
        pickerSetter(QStringLiteral("SaveProperties"), [](XFieldPicker &p) { p.SaveProperties(); }),
        {QStringLiteral("XFieldPicker FieldsChange"), [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) {
             // The catalogue reports a change of the shown category's entity (Cell).
             r.catalog->inner()->GetFieldUpdates()->RaiseFieldsChange(3, Fields::create(), FieldUpdates::Changed);
         },
         pickerState},
        {QStringLiteral("XFieldPicker click on a category"), pickerShown,
         [](Rig &r) {
             auto *tvw = r.picker->findChild<QTreeView *>(QStringLiteral("tvw"));
             QVERIFY(tvw);
             const QModelIndexList found =
                 tvw->model()->match(tvw->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("Region"), 1,
                                     Qt::MatchExactly | Qt::MatchRecursive);
             QVERIFY(!found.isEmpty());
             QTest::mouseClick(tvw->viewport(), Qt::LeftButton, {}, tvw->visualRect(found.first()).center());
         },
         pickerState},
        {QStringLiteral("XFieldPicker paint"), pickerShown, [](Rig &r) { r.picker->grab(); }, pickerState},
        {QStringLiteral("XFieldPicker DeleteSelection of own and foreign UDCs"),
         [](Rig &r) { udcsSelected(r, true); },
         [](Rig &r) {
             r.picker->SelectAll();
             r.picker->DeleteSelection();
         },
         udcOwners},
        {QStringLiteral("XFieldPicker Copy"),
         [](Rig &r) {
             pickerShowing(r, QStringLiteral("Cell"));
             r.picker->SelectAll();
         },
         [](Rig &r) { r.picker->Copy(); }, pickerSelection},
        {QStringLiteral("XFieldPicker ChangeSelectionOwnership"),
         [](Rig &r) {
             udcsSelected(r, false);
             r.owners->setChoice(userOf(r, Analyst));
         },
         [](Rig &r) {
             r.picker->SelectAll();
             r.picker->ChangeSelectionOwnership();
         },
         udcOwners},
        {QStringLiteral("XFieldPicker SelectFieldById"), [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) { r.picker->SelectFieldById(12); }, pickerSelection},
        {QStringLiteral("XFieldPicker SelectVisibleFieldById"),
         [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) { r.picker->SelectVisibleFieldById(10); }, pickerSelection},
        {QStringLiteral("XFieldPicker SetSelection"), [](Rig &r) { pickerShowing(r, QStringLiteral("Cell")); },
         [](Rig &r) { r.picker->SetSelection(QVariant::fromValue(catalogFields(r, {10, 11}))); }, pickerSelection},
        pickerSetter(QStringLiteral("ClusterEntityId"), [](XFieldPicker &p) { p.setClusterEntityId(3); }),
        {QStringLiteral("XFieldPicker context menu of the list"), pickerMenusReady,
         [](Rig &r) {
             r.answer.clear();
             Q_EMIT r.picker->findChild<XStaticList *>(QStringLiteral("stl"))->ContextMenuRequested(QPoint(5, 5));
         },
         [](Rig &r) { return r.answer + QLatin1Char('|') + pickerSelection(r); }},

        {QStringLiteral("XTechnologies InitializeTechnologyTypes"),
         [](Rig &r) { r.technologies = std::make_unique<XTechnologies>(); },
         [](Rig &r) { r.answer = r.technologies->InitializeTechnologyTypes() ? QStringLiteral("built") : QStringLiteral("failed"); },
         techState},
        {QStringLiteral("XTechnologies SetMask"), techBuilt,
         [](Rig &r) { r.technologies->SetMask(QStringLiteral("UL")); }, techState},
        {QStringLiteral("XTechnologies GetMask"), techBuilt, [](Rig &r) { r.answer = r.technologies->GetMask(); },
         techState},
        {QStringLiteral("XTechnologies TechBits"), techBuilt,
         [](Rig &r) { r.answer = r.technologies->TechBits().toString(); }, techState},

        {QStringLiteral("XNumberFilter IsValid"), numberLoaded,
         [](Rig &r) {
             QString error;
             r.answer = r.numberFilter->IsValid(error) ? QStringLiteral("valid") : error;
         },
         [](Rig &r) { return r.answer; }},
        {QStringLiteral("XTimeFilter IsValid"), timeLoaded,
         [](Rig &r) {
             QString error;
             r.answer = r.timeFilter->IsValid(error) ? QStringLiteral("valid") : error;
         },
         [](Rig &r) { return r.answer; }},
        {QStringLiteral("XTimeFilter GetTimeFilter"), timeLoaded,
         [](Rig &r) { r.answer = QString::number(r.timeFilter->GetTimeFilter()->RelativeCount()); },
         [](Rig &r) { return r.answer; }},
        {QStringLiteral("XEnumFilter SetFilter"), enumCreated,
         [](Rig &r) {
             auto value = std::make_shared<EnumFilterValue>();
             value->setSelection(QStringLiteral("I"));
             r.enumFilter->SetFilter(value, App, r.statusList, r.statusFilter);
         },
         enumState},
        {QStringLiteral("XEnumFilter GetFilter"), enumLoaded,
         [](Rig &r) {
             const EnumFilterValuePtr value = r.enumFilter->GetFilter();
             r.answer = value ? value->Selection() : QStringLiteral("none");
         },
         enumState},
        {QStringLiteral("XEnumFilter IsValid"), enumLoaded,
         [](Rig &r) { r.answer = r.enumFilter->IsValid() ? QStringLiteral("valid") : QStringLiteral("invalid"); }, enumState},

        {QStringLiteral("XExpTemplate constructor"), [](Rig &) {},
         [](Rig &r) { r.expTemplate = std::make_unique<XExpTemplate>(); }, templateState},
        {QStringLiteral("XExpTemplate Load"), [](Rig &r) { r.expTemplate = std::make_unique<XExpTemplate>(); },
         [](Rig &r) {
             // Load hands a failing catalogue on to its caller as a CatalogError.
             try {
                 r.expTemplate->Load(App, QStringLiteral("Cell"), templateOf(r, {12}));
             } catch (const CatalogError &) {
             }
         },
         templateState},
        {QStringLiteral("XExpTemplate Find"), templateLoaded, [](Rig &r) { clickButton(r, "cmdApply"); },
         templateState},
        {QStringLiteral("XExpTemplate Add"), templateLoaded,
         [](Rig &r) {
             r.expTemplate->setFields(nullptr);
             templateList(r, QStringLiteral("stlAvailable"))->SelectItems(catalogFields(r, {10}));
             clickButton(r, "cmdAdd");
         },
         templateState},
        {QStringLiteral("XExpTemplate Remove"), templateLoaded,
         [](Rig &r) {
             r.expTemplate->setFields(templateOf(r, {10, 11}));
             templateList(r, QStringLiteral("stlSelected"))->SelectItems(catalogFields(r, {10}));
             clickButton(r, "cmdRemove");
         },
         templateState},
        {QStringLiteral("XExpTemplate IsValid"),
         [](Rig &r) {
             templateLoaded(r);
             r.expTemplate->setFields(templateOf(r, {10, 12}));
         },
         [](Rig &r) { r.answer = r.expTemplate->IsValid(QStringLiteral("Check")) ? QStringLiteral("valid") : QStringLiteral("invalid"); },
         templateAnswer},
        {QStringLiteral("XExpTemplate Fields"), templateLoaded,
         [](Rig &r) { r.answer = QString::number(r.expTemplate->Fields()->Count()); }, templateAnswer},
        {QStringLiteral("XExpTemplate setFields"), templateLoaded,
         [](Rig &r) { r.expTemplate->setFields(templateOf(r, {10, 13})); }, templateState},
        {QStringLiteral("XExpTemplate SaveState"), templateLoaded, [](Rig &r) { r.expTemplate->SaveState(); },
         templateState},
        {QStringLiteral("XExpTemplate LoadState"),
         [](Rig &r) {
             templateLoaded(r);
             r.expTemplate->SaveState();
         },
         [](Rig &r) { r.expTemplate->LoadState(); }, templateState},
        {QStringLiteral("XExpTemplate drop of a field browser's fields"), templateShown,
         [](Rig &r) {
             r.expTemplate->setFields(nullptr);
             dropOnTemplate(r);
         },
         templateState},
    };
    return all;
}

const char *modeName(FaultPlan::Mode mode)
{
    switch (mode) {
    case FaultPlan::Mode::CatalogError:
        return "CatalogError";
    case FaultPlan::Mode::Foreign:
        return "int";
    case FaultPlan::Mode::Nothing:
        return "nothing";
    }
    return "";
}

} // namespace

/**
 * The contract under a failing service: every public operation returns normally (a failure shows
 * in its result, or it is ignored), nothing reaches the event loop, the wait cursor stack ends where
 * it started, and the same operation run again without failures gives the normal result.
 */
class FaultInjectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldSurviveAServiceFailingAtEveryCall_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("failAt");
        QTest::addColumn<QString>("expected");

        for (int op = 0; op < operations().size(); ++op) {
            const Operation &operation = operations().at(op);
            // A run without failures counts the calls and gives the result every row must reach again.
            int calls = 0;
            QString expected;
            {
                Rig rig;
                operation.prepare(rig);
                rig.plan->arm(0, FaultPlan::Mode::CatalogError);
                operation.run(rig);
                // What the operation leaves for the event loop (repaints, queued updates) counts too.
                QCoreApplication::processEvents();
                calls = rig.plan->calls;
                rig.plan->disarm();
                expected = operation.observe(rig);
            }
            for (const FaultPlan::Mode mode :
                 {FaultPlan::Mode::CatalogError, FaultPlan::Mode::Foreign, FaultPlan::Mode::Nothing}) {
                for (int failAt = 1; failAt <= calls + 1; ++failAt) {
                    const QString row = failAt <= calls
                        ? QStringLiteral("%1 / %2 at call %3").arg(operation.name, QLatin1String(modeName(mode)))
                              .arg(failAt)
                        : QStringLiteral("%1 / %2 passes").arg(operation.name, QLatin1String(modeName(mode)));
                    QTest::newRow(qPrintable(row)) << op << int(mode) << failAt << expected;
                }
            }
        }
    }

    void shouldSurviveAServiceFailingAtEveryCall()
    {
        QFETCH(int, operation);
        QFETCH(int, mode);
        QFETCH(int, failAt);
        QFETCH(QString, expected);
        const Operation &op = operations().at(operation);
        const auto how = FaultPlan::Mode(mode);

        // Given a control set up while its services work
        Rig rig;
        op.prepare(rig);
        const int escapedBefore = guardedApp()->escaped;

        // When the services fail at one call of the operation
        rig.plan->arm(failAt, how);
        bool escaped = false;
        try {
            op.run(rig);
            QCoreApplication::processEvents();
        } catch (...) {
            escaped = true;
        }
        rig.plan->disarm();
        QCoreApplication::processEvents();

        // Then nothing escapes, to the caller or into the event loop
        const int intoEventLoop = guardedApp()->escaped - escapedBefore;
        QVERIFY2(!escaped && intoEventLoop == 0,
                 qPrintable(QStringLiteral("%1 failed; escaped to the caller: %2, into the event loop: %3")
                                .arg(rig.plan->failedCall)
                                .arg(escaped)
                                .arg(intoEventLoop)));
        // and the wait cursor is back where it was
        QCOMPARE(rig.services->log()->Depth(), 0);
        QCOMPARE(rig.services->log()->unbalancedPops(), 0);
        // and the control still works: running the operation again gives the normal result
        op.run(rig);
        QCoreApplication::processEvents();
        QCOMPARE(op.observe(rig), expected);
    }

    /// What a control shows or answers right after the failure (a prefix of the observed state).
    void shouldReportTheFailureThroughItsResult_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("failAt");
        QTest::addColumn<QString>("shown");

        const int error = int(FaultPlan::Mode::CatalogError);
        const int foreign = int(FaultPlan::Mode::Foreign);
        QTest::newRow("a lower bound whose check throws is refused with the reason")
            << QStringLiteral("XNumberFilter IsValid") << error << 1
            << QStringLiteral("The number \"5\" could not be checked: The catalogue failed on purpose at call 1.");
        QTest::newRow("an upper bound whose check throws a foreign exception is refused")
            << QStringLiteral("XNumberFilter IsValid") << foreign << 2
            << QStringLiteral("The number \"10\" could not be checked: an exception of unknown type");
        QTest::newRow("a count whose check throws is refused with the reason")
            << QStringLiteral("XTimeFilter IsValid") << foreign << 1
            << QStringLiteral("The number \"3\" could not be checked: an exception of unknown type");
        QTest::newRow("a count whose check throws reads as no count")
            << QStringLiteral("XTimeFilter GetTimeFilter") << error << 1 << QStringLiteral("0");
        QTest::newRow("values that cannot be read leave the value tree empty")
            << QStringLiteral("XEnumFilter SetFilter") << foreign << 1 << QStringLiteral("|");
        QTest::newRow("checked values that cannot be read give no filter")
            << QStringLiteral("XEnumFilter GetFilter") << error << 1 << QStringLiteral("none|");
    }

    void shouldReportTheFailureThroughItsResult()
    {
        QFETCH(QString, operation);
        QFETCH(int, mode);
        QFETCH(int, failAt);
        QFETCH(QString, shown);
        const auto op = std::find_if(operations().cbegin(), operations().cend(),
                                     [&](const Operation &candidate) { return candidate.name == operation; });
        QVERIFY(op != operations().cend());

        // Given a control set up while its services work
        Rig rig;
        op->prepare(rig);

        // When a service fails at one call of the operation
        rig.plan->arm(failAt, FaultPlan::Mode(mode));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("failed")));
        op->run(rig);
        rig.plan->disarm();

        // Then the control reports the failure in what it answers or shows
        const QString observed = op->observe(rig);
        QVERIFY2(observed.startsWith(shown), qPrintable(observed));
    }
};

int main(int argc, char *argv[])
{
    GuardedApplication app(argc, argv);
    FaultInjectionTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_faultinjection.moc"
