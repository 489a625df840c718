#pragma once

#include <QLatin1StringView>
#include <QString>

#include <array>
#include <cstdint>
#include <span>

/// Everything that the frame can be told to do, as one table. Menus, toolbar, enabling and the
/// guided tours read it.
namespace quor {

enum class Command : std::uint8_t {
    mnuNuovoSistema,
    mnuApriSistema,
    mnuSalvaSistema,
    mnuSalvaSistemaConNome,
    mnuChiudiSistema,
    mnuOpzioniSistema,
    mnuEsportaSistema,
    mnuEsci,
    mnuCalcola,
    mnuApriBioritmo,
    mnuSalvaBioritmo,
    mnuSalvaConNome,
    mnuChiudiBioritmo,
    mnuAnteprimaDiStampa,
    mnuStampa,
    mnuGrafico,
    mnuStatoSettimanale,
    mnuStatoOdierno,
    mnuPrevisioni,
    mnuSpostaDataDiCalcolo,
    mnuOpzioni,
    mnuEsporta,
    mnuEsci2,
    mnuWinArrHor,
    mnuWinArrVer,
    mnuWinArrCas,
    mnuWinArrIco,
    mnuHlpCompleto,
    mnuProcedureGuidate,
    mnuAbout,
    /// The two entries of the options button's drop-down; in no menu of the bar.
    graphOptions,
    weeklyOptions,
};
inline constexpr std::size_t commandCount = 32;

/// Positions of the toolbar.
inline constexpr std::size_t toolCount = 20;

/// The menus of the bar, in their order.
enum class Menu : std::uint8_t { mnuFile, mnuBioritmi, mnuFinestre, mnuHelp, none };

/// What has to be there for a command to be usable.
enum class Needs : std::uint8_t { nothing, biorhythm, system };

struct MenuInfo {
    Menu menu;
    const char* name;        ///< object name
    const char16_t* caption; ///< with its access key
};

struct CommandInfo {
    Command command;
    const char* name; ///< object name
    Menu menu;
    const char16_t* caption; ///< with its access key
    Needs needs;
    bool startsGroup; ///< a separator stands before it
};

/// A position of the toolbar. A separator has no key.
struct ToolInfo {
    int position; ///< 1-based, separators counted
    const char* key;
    const char16_t* toolTip;
    Command command; ///< what the button dispatches to
    /// Disabled at start and when the biorhythm is closed.
    bool startsDisabled;
    /// Enabled when a biorhythm is applied.
    bool enabledByBiorhythm;

    [[nodiscard]] constexpr bool isSeparator() const { return key == nullptr; }
    /// The position in an array of them all.
    [[nodiscard]] constexpr std::size_t index() const {
        return static_cast<std::size_t>(position) - 1;
    }
};

[[nodiscard]] std::span<const MenuInfo> menuTable();
/// In the order of the menus, then the options button's drop-down.
[[nodiscard]] std::span<const CommandInfo> commandTable();
[[nodiscard]] const CommandInfo& commandInfo(Command command);
/// The toolbar's positions in order.
[[nodiscard]] std::span<const ToolInfo> toolTable();

} // namespace quor
