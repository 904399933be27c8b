#pragma once

#include <PickerCtl/XExpTemplate.h>

#include "exptemplate/searchcriteria.h"

#include <PickerCtl/Fields.h>

#include <QByteArray>

class QComboBox;
class QEvent;
class QFrame;
class QLabel;
class QLineEdit;
class QMimeData;
class QPushButton;
class QToolButton;

namespace PickerCtl {

class XStaticList;

/// The editor's state and children, shared by the files that each implement one concern:
/// building (xexptemplate.cpp), search, moving, drag and drop, keys, layout, validation, state.
struct XExpTemplate::Private
{
    explicit Private(XExpTemplate *owner);

    XExpTemplate *q;
    HostSite *site = nullptr;

    // The criteria of the last search and the codes read with them.
    QString appName;
    ExpTemplate::SearchCriteria last;
    bool searchPending = false;
    QString ownerFilter;
    QString fieldTypeCode;
    QString techTypeCode;
    /// Names this editor in the row drags it starts, so a drop knows its own rows.
    QByteArray token;

    QFrame *frmExpress = nullptr;
    QLabel *lblEntity = nullptr;
    QComboBox *cboEntityTypes = nullptr;
    QLabel *lblTechTypes = nullptr;
    QComboBox *cboTechTypes = nullptr;
    QLabel *lblFieldTypes = nullptr;
    QComboBox *cboFieldTypes = nullptr;
    QLabel *lblNameFilter = nullptr;
    QLineEdit *txtNameFilter = nullptr;
    QPushButton *cmdApply = nullptr;
    QLabel *lblAvailable = nullptr;
    XStaticList *stlAvailable = nullptr;
    QLabel *lblSelected = nullptr;
    XStaticList *stlSelected = nullptr;
    QToolButton *cmdAdd = nullptr;
    QToolButton *cmdRemove = nullptr;
    QToolButton *cmdMoveUp = nullptr;
    QToolButton *cmdMoveDown = nullptr;

    // xexptemplate.cpp
    void build();
    void buildSearchBand();
    void buildLists();
    void buildButtons();
    void connectChildren();
    void attachCatalogue();

    // exptemplate_search.cpp
    void fillCriteria();
    /// Load's work; whatever the catalogue throws passes through.
    void load(const QString &sAppNameA, const QString &sCategoryNameA, const TemplateFieldsPtr &tplfs);
    /// Find: searches unless the widgets show the criteria of the last search.
    void find();
    void readCriteria();
    /// The search itself, under the wait cursor: the matching fields become the available list.
    void search();
    /// Find for a user action: a failing catalogue ends the search, not the program.
    void findForUser();

    // exptemplate_moving.cpp
    void add();
    void remove();
    void moveUp();
    void moveDown();
    void updateButtons();

    // exptemplate_dragdrop.cpp
    void enableDragAndDrop();
    void fillDrag(XStaticList *source, QMimeData *data, bool rows);
    bool drop(const QMimeData *data, int row, bool apply);
    bool insertDropped(const FieldsPtr &fields, int row);
    bool reorder(int row);

    // exptemplate_keys.cpp
    void watchKeys();
    /// True when the key was the editor's and must go no further.
    bool handleKey(QObject *watched, QEvent *event);
    bool isCriterionBox(const QObject *object) const;
    bool isTemplateView(const QObject *object) const;

    // exptemplate_layout.cpp
    void placeDesign();
    void layout();
    QSize preferredSize(bool minimum) const;
};

} // namespace PickerCtl
