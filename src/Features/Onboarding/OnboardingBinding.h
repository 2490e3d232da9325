#pragma once

#include "Features/Onboarding/OnboardingView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

#include <optional>

namespace orvelle {

struct OnboardingContentValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue title MEMBER title)
    Q_PROPERTY(QVariantList paragraphs MEMBER paragraphs)
    Q_PROPERTY(QVariant button MEMBER button)
    Q_PROPERTY(QVariant toggle MEMBER toggle)
    Q_PROPERTY(bool isOn MEMBER isOn)
    Q_PROPERTY(QVariant status MEMBER status)
    Q_PROPERTY(QVariant note MEMBER note)
    Q_PROPERTY(QVariantList tips MEMBER tips)

public:
    SymbolValue symbol;
    TextValue title;
    QVariantList paragraphs; ///< of OnboardingTextValue
    QVariant button;         ///< its title, or undefined
    QVariant toggle;         ///< its label, or undefined
    bool isOn = false;
    QVariant status;   ///< a text, or undefined
    QVariant note;     ///< as `status`
    QVariantList tips; ///< of OnboardingTipValue
    bool operator==(const OnboardingContentValue&) const = default;
};

struct OnboardingTextValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue text MEMBER text)
    Q_PROPERTY(double maximumWidth MEMBER maximumWidth)

public:
    TextValue text;
    double maximumWidth = 0;
    bool operator==(const OnboardingTextValue&) const = default;
};

struct OnboardingTipValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue text MEMBER text)

public:
    SymbolValue symbol;
    TextValue text;
    bool operator==(const OnboardingTipValue&) const = default;
};

struct OnboardingNavigationValue {
    Q_GADGET
    Q_PROPERTY(bool showsBack MEMBER showsBack)
    Q_PROPERTY(bool showsSkip MEMBER showsSkip)
    Q_PROPERTY(double skipOpacity MEMBER skipOpacity)
    Q_PROPERTY(QString forward MEMBER forward)

public:
    bool showsBack = false;
    bool showsSkip = false;
    double skipOpacity = 1;
    QString forward;
    bool operator==(const OnboardingNavigationValue&) const = default;
};

class OnboardingBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, horizontalPadding, OnboardingView)
    ORVELLE_CONSTANT(double, verticalPadding, OnboardingView)
    ORVELLE_CONSTANT(double, tipSymbolWidth, OnboardingView)
    ORVELLE_CONSTANT(int, transitionDuration, OnboardingView)
    ORVELLE_SHOWN(int, step)
    ORVELLE_SHOWN(orvelle::OnboardingContentValue, content)
    ORVELLE_SHOWN(orvelle::OnboardingNavigationValue, navigation)
    ORVELLE_SHOWN(QVariantList, dots)

public:
    Q_INVOKABLE void appear() { view_->appear(); }
    Q_INVOKABLE void goBack() { view_->goBack(); }
    Q_INVOKABLE void skip() { view_->skip(); }
    Q_INVOKABLE void goForward() { view_->goForward(); }
    Q_INVOKABLE void performAction() { view_->performAction(); }
    Q_INVOKABLE void updateLaunchAtLogin(bool enabled) { view_->updateLaunchAtLogin(enabled); }

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<OnboardingView> view_;
};

} // namespace orvelle
