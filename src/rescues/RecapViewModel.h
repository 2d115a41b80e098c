#pragma once

#include "RecapView.h"

#include <theme/ThemePalette.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// The recap as its view lays it out. Main thread only.
class RecapViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(vantrel::ThemePalette palette READ palette NOTIFY changed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(QString lead READ lead NOTIFY changed FINAL)
    Q_PROPERTY(QString count READ count NOTIFY changed FINAL)
    Q_PROPERTY(QString tail READ tail NOTIFY changed FINAL)
    Q_PROPERTY(QStringList sources READ sources NOTIFY changed FINAL)
    Q_PROPERTY(QStringList refusals READ refusals NOTIFY changed FINAL)
    Q_PROPERTY(QString friends READ friends NOTIFY changed FINAL)
    Q_PROPERTY(QString flourish READ flourish NOTIFY changed FINAL)
    Q_PROPERTY(bool canSeedSample READ canSeedSample NOTIFY changed FINAL)
    Q_PROPERTY(bool canClear READ canClear NOTIFY changed FINAL)

public:
    /// Replaces all that is shown.
    void show(RecapView view);

    [[nodiscard]] ThemePalette palette() const { return ThemePalette(m_view.palette); }

    /// Nobody was ever fetched.
    [[nodiscard]] bool isEmpty() const { return m_view.lifetime.totalRescues == 0; }

    [[nodiscard]] QString lead() const;  ///< Of the week's sentence: what stands above the count.
    [[nodiscard]] QString count() const; ///< The week's rescues.
    [[nodiscard]] QString tail() const;  ///< What stands below the count.

    // The week's figures, in the order in which they stand; those that are 0 are left out.

    [[nodiscard]] QStringList sources() const;  ///< Where the user joined from.
    [[nodiscard]] QStringList refusals() const; ///< How takeovers were turned away.

    [[nodiscard]] QString friends() const;  ///< A sentence; empty without any.
    [[nodiscard]] QString flourish() const; ///< Empty for none.

    [[nodiscard]] bool canSeedSample() const { return bool(m_view.onSeedSample); }
    [[nodiscard]] bool canClear() const { return bool(m_view.onClear); }
    Q_INVOKABLE void seedSample() const;
    Q_INVOKABLE void clear() const;

Q_SIGNALS:
    void changed();

private:
    RecapView m_view;
};

} // namespace vantrel
