#pragma once

#include "PanelDials.h"
#include "WidgetMFA.h"

#include <memory>

class LampField;
class PanelLamps;
struct PanelRules;

/// What the fixed panels have in common: a `ControlLight` for every lamp around the dials, no
/// dialogue and no pages. A class brings its form and its rules. The scales and colours follow the
/// display family of the loco, which may change under the open window.
class WidgetMFA_Panel : public WidgetMFA
{
    Q_OBJECT

public:
    ~WidgetMFA_Panel() override;

    int DisplayType() const { return displayType; }
    int ConfigType() const { return configType; }

public slots:
    void OnUpdateSecondTimer() override;

protected:
    WidgetMFA_Panel(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                    Qt::WindowFlags windowFlags, const PanelRules &classRules);

    /// The last step of a class's constructor, when its form is built.
    void Open(const PanelDials &formDials, LampField *formField);
    /// What a class adds to the configuration.
    virtual void FinishConfiguration() { }

    PanelDials dials;
    std::unique_ptr<PanelLamps> lamps;

private:
    void Configure();
    void TakeLoco();
    void MoveNeedles(const PanelState &state);

    const PanelRules &rules;
    LampField *field = nullptr;
    int displayType = -1; ///< last seen `Display`, -1 before the first
    int configType = 0; ///< last seen `ConfigTyp`
};
