#pragma once

// The platform-free objects and enumerations the views name, registered with QML here so that the
// libraries that define them need nothing but Qt Core.

#include "base/AppActivity.h"
#include "base/IslandSettings.h"
#include "base/LoginItem.h"
#include "base/Tier.h"
#include "clipboard/ClipKind.h"
#include "clipboard/ClipListModel.h"
#include "clipboard/IslandClipboard.h"
#include "face/DrawnFace.h"
#include "face/FaceVideo.h"
#include "face/MoodArt.h"
#include "feedback/Feedback.h"
#include "island/CardLabels.h"
#include "island/CardMeasures.h"
#include "island/IslandController.h"
#include "island/IslandLook.h"
#include "island/IslandMode.h"
#include "island/IslandState.h"
#include "island/Mood.h"
#include "island/SessionListModel.h"
#include "island/SessionRow.h"
#include "island/SessionsSection.h"
#include "island/SettingsCard.h"
#include "island/summon/SummonPanel.h"
#include "island/summon/SummonView.h"
#include "media/MusicSection.h"

#include <QtQml/qqml.h>

namespace vaxo::qml {

struct AppActivityForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::AppActivity)
    QML_NAMED_ELEMENT(AppActivity)
    QML_UNCREATABLE("Made by the program")
};

struct CardLabelsForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::CardLabels)
    QML_NAMED_ELEMENT(CardLabels)
    QML_UNCREATABLE("Made by the program")
};

struct CardMeasuresForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::CardMeasures)
    QML_NAMED_ELEMENT(CardMeasures)
    QML_UNCREATABLE("Made by the program")
};

struct ClipListModelForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::ClipListModel)
    QML_NAMED_ELEMENT(ClipListModel)
    QML_UNCREATABLE("Made by the program")
};

struct FeedbackForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::Feedback)
    QML_NAMED_ELEMENT(Feedback)
    QML_UNCREATABLE("Made by the program")
};

struct DrawnFaceForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::DrawnFace)
    QML_NAMED_ELEMENT(DrawnFace)
};

struct FaceVideoForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::FaceVideo)
    QML_NAMED_ELEMENT(FaceVideo)
};

struct IslandClipboardForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::IslandClipboard)
    QML_NAMED_ELEMENT(IslandClipboard)
    QML_UNCREATABLE("Made by the program")
};

struct IslandControllerForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::IslandController)
    QML_NAMED_ELEMENT(IslandController)
    QML_UNCREATABLE("Made by the program")
};

struct IslandLookForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::IslandLook)
    QML_NAMED_ELEMENT(IslandLook)
    QML_UNCREATABLE("Made by the program")
};

struct IslandSettingsForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::IslandSettings)
    QML_NAMED_ELEMENT(IslandSettings)
    QML_UNCREATABLE("Made by the program")
};

struct IslandStateForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::IslandState)
    QML_NAMED_ELEMENT(IslandState)
    QML_UNCREATABLE("Made by the program")
};

struct LoginItemForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::LoginItem)
    QML_NAMED_ELEMENT(LoginItem)
    QML_UNCREATABLE("Made by the program")
};

struct MoodArtForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::MoodArt)
    QML_NAMED_ELEMENT(MoodArt)
    QML_UNCREATABLE("Made by the program")
};

struct MusicSectionForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::MusicSection)
    QML_NAMED_ELEMENT(MusicSection)
    QML_UNCREATABLE("Made by the program")
};

struct SessionListModelForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::SessionListModel)
    QML_NAMED_ELEMENT(SessionListModel)
    QML_UNCREATABLE("Made by the program")
};

struct SessionsSectionForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::SessionsSection)
    QML_NAMED_ELEMENT(SessionsSection)
    QML_UNCREATABLE("Made by the program")
};

struct SettingsCardForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::SettingsCard)
    QML_NAMED_ELEMENT(SettingsCard)
    QML_UNCREATABLE("Made by the program")
};

struct SummonPanelForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::SummonPanel)
    QML_NAMED_ELEMENT(SummonPanel)
    QML_UNCREATABLE("Made by the program")
};

struct SummonViewForeign {
    Q_GADGET
    QML_FOREIGN(vaxo::SummonView)
    QML_NAMED_ELEMENT(SummonView)
    QML_UNCREATABLE("Made by the program")
};

// Registers the types above with the views' module, and the enumerations they name (Mood.Waiting,
// IslandMode.Agents, ...) by hand, once: the type registrar of Qt 6.4 writes code that does not compile
// for foreign namespaces.
void registerTypes();

} // namespace vaxo::qml
