// The scenarios of failing files: start-up, opening, moving, closing, saving, quitting.
#include "faults_scenarios.hpp"

namespace {

using Etapes = std::vector<std::string>;

const std::string kCommande = "<N> <N>";
const std::string kSous = "<N> <N> sur EnregistrerSous";
const std::string kLecture = "<N> <N>sur litnomcopie";
const std::string kJaws = "<N> <N>sur jaws";
const std::string kDemarrage = "démarrage:";

const Rapport kSilence{{}};
const Rapport kArret{{kCommande}};  // the command ends with its box, the program goes on
const Rapport kFin{{}, false};      // nothing is said, and the program ends
const Rapport kFinDite{{kCommande}, false};  // all is saved: the program ends with its box

const std::string kFichierA = "fichier \"C:\\A.VXT\" \"A=1¶\"";
const std::string kFichierB = "fichier \"C:\\B.VXT\" \"B=1¶\"";
const std::string kFichierC = "fichier \"C:\\C.VXT\" \"C=1¶\"";
const std::string kRepondB = "répond \"C:\\B.VXT\"";
const std::string kRepondC = "répond \"C:\\C.VXT\"";
const std::string kRepondD = "répond \"C:\\D.VXT\"";
const std::string kRepondU = "répond \"C:\\U.VXT\"";
const std::string kOuvre = "touche Ctrl+O";

// One sheet is open.
const Etapes kUn{kFichierA, "démarre \"C:\\A.VXT\""};

// Steps one after the other.
Etapes puis(Etapes etapes, const Etapes& suite) {
    etapes.insert(etapes.end(), suite.begin(), suite.end());
    return etapes;
}

// Two and three sheets are open, the last one is current.
Etapes deux() { return puis(kUn, {kFichierB, kRepondB, kOuvre}); }
Etapes trois() { return puis(deux(), {kFichierC, kRepondC, kOuvre}); }

// Three sheets, the first and the second changed, the second current.
Etapes deux_modifies() {
    return puis(trois(), {"touche F6", "tape \"X\"", "touche F6", "tape \"X\""});
}

// An untitled sheet with a text, in front of another sheet that is current.
Etapes sans_titre_devant() { return {"démarre", "tape \"U=1\"", kFichierB, kRepondB, kOuvre}; }

// The reader and its files, and the answer to the question for its folder.
const Etapes kScripts{
    "fichier \"C:\\VOXTAB\\verjaws.ini\" \"\"", "fichier \"C:\\VOXTAB\\voxtab.jdf\" \"jdf\"",
    "fichier \"C:\\VOXTAB\\voxtab.jcf\" \"jcf\"", "dossier \"C:\\JAWS5\\settings\\fra\"",
    "répond \"C:\\JAWS5\\settings\\fra\""};

// Start-up.
void ajoute_demarrages(std::vector<Scenario>& tous) {
    // Its operation: the working folder is made.
    tous.push_back({"first start", {}, {"démarre"}, {}, {{{kDemarrage}}}});
    // The settings are read, the sheet is copied, the copy is read.
    tous.push_back({"start with the last sheet",
                    puis(kUn, {"choisit mnuDerniereFeuilleItem", "choisit mnuQuitterItem"}),
                    {"redémarre"},
                    {"A=1"},
                    {{{kDemarrage}}, {{kDemarrage + "C:\\A.VXT"}}, {{kLecture}}}});
    // The sheet is copied over a copy that was left, the copy is read.
    tous.push_back({"start with a command line",
                    {kFichierA, "fichier \"C:\\VOXTAB\\travail\\C__A.VXT\" \"A=0¶\""},
                    {"démarre \"C:\\A.VXT\""},
                    {"A=1"},
                    {{{kDemarrage + "C:\\A.VXT"}}, {{kLecture}}}});
    // Two folders of the users are searched in silence, the root is listed, two files are copied,
    // the marker is deleted, the working folder is made.
    tous.push_back(
        {"start with the reader's scripts",
         kScripts,
         {"démarre"},
         {},
         {kSilence, kSilence, {{kJaws}}, {{kJaws}}, {{kJaws}}, {{kDemarrage}}, {{kDemarrage}}}});
}

// Commands that leave a sheet for another one or for another text.
void ajoute_ouvertures(std::vector<Scenario>& tous) {
    // The sheet's copy is written, the file is copied, the copy is read.
    tous.push_back({"open beside a changed sheet",
                    puis(kUn, {kFichierB, "tape \"X\""}),
                    {kRepondB, kOuvre},
                    {"XA=1", "B=1"},
                    {kSilence, kSilence, {{kLecture}}}});
    // The same, told in one box.
    tous.push_back({"open a recent file",
                    puis(deux(), {"choisit mnuQuitterItem", "redémarre", "tape \"U=1\""}),
                    {"choisit mnuOuvrirSousMenuItem 2"},
                    {"U=1", "A=1", "B=1"},
                    {kArret, kArret, {{kLecture}}}});
    tous.push_back(
        {"new sheet", puis(deux(), {"tape \"X\""}), {"touche Ctrl+N"}, {"A=1", "XB=1"}, {kArret}});
    // The copy is written, the other one is read.
    tous.push_back({"next sheet",
                    puis(deux(), {"tape \"X\""}),
                    {"touche F6"},
                    {"A=1", "XB=1"},
                    {kArret, {{kLecture}}}});
    tous.push_back({"previous sheet",
                    puis(trois(), {"tape \"X\""}),
                    {"touche Maj+F6"},
                    {"A=1", "B=1", "XC=1"},
                    {kArret, {{kLecture}}}});
    // The guide is read, the sheet's copy is written, the copy is read.
    tous.push_back({"the guide and back",
                    puis(kUn, {"fichier \"C:\\VOXTAB\\aide.txt\" \"guide¶\"", "tape \"X\""}),
                    {"choisit mnuAideTxtItem", "touche F1", "touche F1"},
                    {"XA=1"},
                    {kArret, kArret, {{kLecture}}}});
}

// Closing a changed sheet, with Yes.
void ajoute_fermetures(std::vector<Scenario>& tous) {
    // Copy written, backup, file, the next sheet's copy read.
    const std::vector<Rapport> oui{kArret, kSilence, kArret, {{kLecture}}};
    tous.push_back({"close the first of three",
                    puis(trois(), {"touche F6", "tape \"X\""}),
                    {"répond oui", "touche Ctrl+F4"},
                    {"XA=1", "B=1", "C=1"},
                    oui});
    tous.push_back({"close the last of two",
                    puis(deux(), {"tape \"X\""}),
                    {"répond oui", "touche Ctrl+F4"},
                    {"A=1", "XB=1"},
                    oui});
    // Copy written, written again, file, copy moved to its new name.
    tous.push_back({"close the untitled sheet",
                    {"démarre", "tape \"U=1\""},
                    {"répond oui", kRepondU, "touche Ctrl+F4"},
                    {"U=1"},
                    {kArret, {{kSous}}, {{kSous}}, {{kSous}}}});
}

// Saving, under the same name and under a new one.
void ajoute_enregistrements(std::vector<Scenario>& tous) {
    // Backup, copy, file.
    tous.push_back({"save a second time",
                    puis(deux(), {"tape \"X\"", "touche Ctrl+S", "tape \"Y\""}),
                    {"touche Ctrl+S"},
                    {"A=1", "XYB=1"},
                    {kSilence, kSilence, kArret}});
    // Copy, file, copy moved.
    tous.push_back({"save the untitled sheet",
                    puis(kUn, {"touche Ctrl+N", "tape \"U=1\""}),
                    {kRepondU, "touche Ctrl+S"},
                    {"A=1", "U=1"},
                    {{{kSous}}, {{kSous}}, {{kSous}}}});
    // Backup, copy, backup, file, copy moved; the same for a sheet that isn't the last.
    const std::vector<Rapport> sous{kSilence, {{kSous}}, kSilence, {{kSous}}, {{kSous}}};
    tous.push_back({"save the last sheet under a new name",
                    puis(deux(), {"tape \"X\""}),
                    {kRepondD, "touche Ctrl+Maj+S"},
                    {"A=1", "XB=1"},
                    sous});
    tous.push_back({"save the first sheet under a new name",
                    puis(deux(), {"touche F6", "tape \"X\""}),
                    {kRepondD, "touche Ctrl+Maj+S"},
                    {"XA=1", "B=1"},
                    sous});
}

// Copy written; backup and file of two sheets; settings, list of the copies, their deletion. A copy
// that can't be written doesn't keep the program; a sheet that can't be saved does, the close box too.
std::vector<Rapport> fins_de_deux(const Rapport& sans_reglages) {
    return {kFinDite, kFin,     kArret,   kFin,     kArret,
            sans_reglages, kFinDite, kFinDite, kFinDite, kFinDite};
}

// Quitting with changed sheets, with Yes, by the menu and by the close box.
void ajoute_fins(std::vector<Scenario>& tous) {
    tous.push_back({"quit with two changed sheets",
                    deux_modifies(),
                    {"répond oui", "répond oui", "choisit mnuQuitterItem"},
                    {"XA=1", "XB=1", "C=1"},
                    fins_de_deux(kArret)});
    // Without the settings the window closes: every sheet is in its file.
    tous.push_back({"close box with two changed sheets",
                    deux_modifies(),
                    {"répond oui", "répond oui", "ferme"},
                    {"XA=1", "XB=1", "C=1"},
                    fins_de_deux(kFinDite)});
    // Copy written, written again, file, copy moved, settings, list, two deletions. The program
    // doesn't end without a sheet that could not be written.
    const Rapport sous{{kSous}};
    tous.push_back({"quit with a changed untitled sheet",
                    puis(kUn, {"touche Ctrl+N", "tape \"U=1\""}),
                    {"répond oui", kRepondU, "choisit mnuQuitterItem"},
                    {"A=1", "U=1"},
                    {kFinDite, {{kSous}, false}, sous, {{kSous}, false}, kArret, kFinDite, kFinDite,
                     kFinDite}});
    // Copy of the current sheet, file of the untitled one, its copy moved; settings, list, two
    // deletions.
    tous.push_back({"quit with a changed untitled sheet that isn't shown",
                    sans_titre_devant(),
                    {"répond oui", kRepondU, "choisit mnuQuitterItem"},
                    {"U=1", "B=1"},
                    {kFinDite, sous, {{kSous}, false}, kArret, kFinDite, kFinDite, kFinDite}});
}

}  // namespace

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> tous = [] {
        std::vector<Scenario> liste;
        ajoute_demarrages(liste);
        ajoute_ouvertures(liste);
        ajoute_fermetures(liste);
        ajoute_enregistrements(liste);
        ajoute_fins(liste);
        return liste;
    }();
    return tous;
}

std::string boite_demarrage(const std::string& feuille, int numero) {
    if (numero == 75) return feuille + " existe";
    if (numero == 76) return "REPERTOIRE INEXISTANT";
    return std::to_string(numero) + " " + std::to_string(numero);
}
