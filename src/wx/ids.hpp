// Fixed identifiers of the controls and of the menu items, the same on every run and every system, so
// that a screen reader's scripts and the tests find them.
#pragma once

namespace ids {

inline constexpr int kStatusBar = 1001;
inline constexpr int kFrameAngle = 1002;
inline constexpr int kOptionDegre = 1003;
inline constexpr int kOptionRadian = 1004;
inline constexpr int kOptionGrade = 1005;
inline constexpr int kCmdAngle = 1006;
inline constexpr int kCmdVoxtab = 1007;
inline constexpr int kCmdModifTexte = 1008;
inline constexpr int kCmdQuitter = 1009;
inline constexpr int kTxt = 1010;
inline constexpr int kListe = 1011;
inline constexpr int kLblMessage = 1012;

inline constexpr int kRecents = 1100;   // plus the item's index, 1 to 15
inline constexpr int kItems = 1200;     // plus the number in the command's row

}  // namespace ids
