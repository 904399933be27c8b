#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <QWidget>
#include <memory>

namespace PickerCtl {

class XTreeOpt;

/**
 * The technology selector: one option tree (`tvw`) that fills the control, with the root
 * "Tech Types" and one check-box child per technology type of the catalogue
 * (FieldCatalog::instance()->GetTechnologyTypes()), keyed and captioned by the type's Name and
 * tagged with its Code, in catalogue order.
 *
 * The choice reads as a technology mask (the Codes of the ticked types, concatenated in catalogue
 * order) and as technology bits (the sum of their Bits). Membership in a mask is a case-sensitive
 * substring test, so a code that occurs inside another code is ticked along with it.
 *
 * The mask operations walk the catalogue's current list of types. A type that has no node (the
 * catalogue changed after the tree was built) is skipped: it is never ticked and adds nothing.
 *
 * Before InitializeTechnologyTypes the tree is empty and the control has nothing ticked:
 * IsValid() is false, GetMask() is "", TechBits() is 0, and SetAll, ClearAll and SetMask change
 * nothing (SetMask returns false). None of them asks the catalogue then.
 *
 * Failures: a catalogue that throws (anything, not only CatalogError) never gets past these
 * members. InitializeTechnologyTypes then leaves the tree and its ticks as they were and returns
 * false; SetMask changes nothing and returns false; GetMask returns "" with *ok false; TechBits
 * returns a null QVariant. The failure is logged with qWarning. A catalogue that answers no list
 * counts as one without technology types.
 *
 * While Locked the ticks show in the palette's disabled colours and the user cannot change them;
 * the host still can (SetAll, ClearAll, SetMask).
 */
class PICKERCTL_EXPORT XTechnologies : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QVariant TechBits READ TechBits)

public:
    explicit XTechnologies(QWidget *parent = nullptr);
    ~XTechnologies() override;

    /// True when at least one type is ticked (the root's check value is not 0).
    bool IsValid() const;
    /// Enabled state of the tree; the control itself stays enabled.
    bool Enabled() const;
    void setEnabled(bool on);
    /// True: the ticks show but the user cannot change them.
    bool Locked() const;
    void setLocked(bool locked);
    /// Ticks every type.
    void SetAll();
    /// Clears every type.
    void ClearAll();
    /**
     * Ticks exactly the types whose Code occurs in sMask and clears all others; characters that
     * match no code are ignored and the order of the codes does not matter. A type with an empty
     * Code is never ticked by a mask. Returns false, changing nothing, when the tree is not built
     * or the catalogue failed.
     */
    bool SetMask(const QString &sMask);
    /// The Codes of the ticked types in catalogue order, each once; "" when none is ticked.
    QString GetMask(bool *ok = nullptr) const;
    /// The sum of the Bits of the ticked types as a qint32 (wrapping on overflow); 0 when none;
    /// a null QVariant when the catalogue failed.
    QVariant TechBits() const;
    /// Builds the tree from the catalogue; every earlier tick is lost. False when the catalogue failed.
    bool InitializeTechnologyTypes();

    /// The option tree (`tvw`).
    XTreeOpt *tree() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A check state changed: a user tick, or SetAll, ClearAll or SetMask (once per node they
    /// change, as the tree reports it). Building the tree raises none.
    void StateChanged();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
