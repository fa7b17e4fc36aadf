#include "WidgetMFA_RailjetKeys.h"

const QVector<WidgetMFA_Railjet::Key> &WidgetMFA_Railjet::Keys()
{
    using W = WidgetMFA_Railjet;
    constexpr int stay = Key::Stay;
    constexpr int dial = LeftPage::Speedometer;
    constexpr int entry = LeftPage::TrainDataEntry;
    // clang-format off
    static const QVector<Key> keys{
        {"label_menu1", &W::OnClickedRightButton, stay, RightPage::MainMenu,
         MenuKey::All, MenuKey::Main},
        {"label_menu2", &W::OnClickedRightButton},
        {"label_menu3", &W::OnClickedRightButton, stay, RightPage::TrainData,
         MenuKey::All, MenuKey::Data, &W::ShowTrainData},
        {"label_menu4", &W::OnClickedRightButton, stay, RightPage::Special,
         MenuKey::None, MenuKey::Special},

        {"label_hauptmenu_cancel", &W::OnClickedPushButtonCancel, dial, RightPage::Force,
         MenuKey::Main},
        {"label_zugdaten_cancel", &W::OnClickedPushButtonCancel, dial, RightPage::Force,
         MenuKey::Data},
        {"label_spezial_cancel", &W::OnClickedPushButtonCancel, dial, RightPage::Force,
         MenuKey::Special},
        {"label_bremsart_cancel", &W::OnClickedPushButtonCancel, dial, RightPage::Force},
        {"label_Dateineingeben", &W::OnClickedPushButtonCancel, entry, RightPage::BrakeTypes,
         MenuKey::All, MenuKey::None, &W::BeginEntry},
        {"label_zugnummer_eingeben", &W::OnClickedPushButtonCancel, dial, RightPage::TrainNumber,
         MenuKey::None, MenuKey::None, &W::BeginTrainNumber},
        Key::Acting("label_nr0", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr1", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr2", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr3", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr4", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr5", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr6", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr7", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr8", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_nr9", &W::OnClickedPushButtonCancel, &W::AppendTrainNumberDigit),
        Key::Acting("label_clear", &W::OnClickedPushButtonCancel, &W::CutTrainNumber),
        {"label_zugnummer_cancel", &W::OnClickedPushButtonCancel, stay, RightPage::MainMenu,
         MenuKey::All, MenuKey::Main},
        {"label_zugnummer_apply", &W::OnClickedPushButtonCancel, stay, RightPage::MainMenu,
         MenuKey::All, MenuKey::Main, &W::ApplyTrainNumber},
        {"label_BRH_cancel", &W::OnClickedPushButtonCancel, stay, RightPage::BrakeTypes},
        {"label_BRH_back", &W::OnClickedPushButtonCancel, stay, RightPage::Result},
        {"label_funktionstest", &W::OnClickedPushButtonCancel, dial, RightPage::Force,
         MenuKey::Special, MenuKey::None, &W::RunFunctionTest},

        {"label_reisezug", &W::OnClickedBremsart, stay, RightPage::Keyboard,
         MenuKey::None, MenuKey::None, &W::ChooseBrakeType},
        {"label_guterzug_g", &W::OnClickedBremsart, stay, RightPage::Keyboard,
         MenuKey::None, MenuKey::None, &W::ChooseBrakeType},
        {"label_guterzug_p", &W::OnClickedBremsart, stay, RightPage::Keyboard,
         MenuKey::None, MenuKey::None, &W::ChooseBrakeType},
        {"label_bremsart_apply", &W::OnClickedBremsart},

        Key::Acting("label_eingabe_0", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_1", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_2", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_3", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_4", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_5", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_6", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_7", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_8", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_9", &W::OnClickedEingabe, &W::AppendEntryDigit),
        Key::Acting("label_eingabe_clear", &W::OnClickedEingabe, &W::CutEntry),
        Key::Acting("label_eingabe_cancel", &W::OnClickedEingabe, &W::CancelEntry),
        Key::Acting("label_eingabe_back", &W::OnClickedEingabe, &W::GoBackInEntry),
        Key::Acting("label_eingabe_apply", &W::OnClickedEingabe, &W::ApplyEnteredValue),
        Key::Acting("label_eingabe_apply_2", &W::OnClickedEingabe, &W::SubmitTrainData),
        {"label_zugdaten_wiederholen", &W::OnClickedEingabe, stay, RightPage::BrakeTypes},
        {"label_zugdaten_aendern", &W::OnClickedEingabe, stay, RightPage::BrhTable,
         MenuKey::None, MenuKey::None, &W::ShowBrhTable},
        {"label_BRH_apply", &W::OnClickedEingabe, stay, RightPage::Keyboard,
         MenuKey::None, MenuKey::None, &W::ApplyBrhRow},
        {"label_BRH_allapply", &W::OnClickedEingabe, stay, RightPage::Overview,
         MenuKey::None, MenuKey::None, &W::ApplyBrhRowToAll},

        {"label_hell", &W::OnClickedHell},
        {"label_dunkel", &W::OnClickedDunkel},
        {"label_nacht", &W::OnClickedNacht},

        Key::Acting("label_scrollTop", &W::OnClickedScrollButton, &W::ScrollMessagesUp),
        Key::Acting("label_scrollBottom", &W::OnClickedScrollButton, &W::ScrollMessagesDown),
        Key::Acting("label_BRH_top", &W::OnClickedScrollButton, &W::ScrollBrhUp),
        Key::Acting("label_BRH_bottom", &W::OnClickedScrollButton, &W::ScrollBrhDown),
    };
    // clang-format on
    return keys;
}
