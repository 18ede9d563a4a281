; Voxtab pour le lecteur d'ecran JAWS : redit le dernier message, et fait taire les messages ou leur rend
; la parole. Voxtab met chaque message dans le nom du controle qui a le focus, et le lecteur le dit de
; lui-meme ; ces scripts passent par le meme chemin, et rien n'est dit deux fois.
; A compiler avec le gestionnaire de scripts du lecteur ; lisezmoi.txt dit comment.
; Etat : gMessagesMuets, quand l'utilisateur a fait taire les messages ; garde dans voxtab.jsi.

Include "hjconst.jsh"
Include "voxtab.jsm"

Const
	ID_LIGNE_MESSAGE = 1012,
	FICHIER_CHOIX = "voxtab.jsi",
	SECTION_CHOIX = "Messages",
	CLE_MUETS = "Muets"

Globals
	int gMessagesMuets

; Voxtab devient le programme actif : le choix de la derniere fois vaut encore.
Void Function AutoStartEvent ()
Let gMessagesMuets = IniReadInteger (SECTION_CHOIX, CLE_MUETS, FALSE, FICHIER_CHOIX)
EndFunction

; La ligne de message de la fenetre qui a le focus ; 0 quand il n'y en a pas.
Handle Function FenetreMessage ()
Return FindDescendantWindow (GetAppMainWindow (GetFocus ()), ID_LIGNE_MESSAGE)
EndFunction

; Le texte de la ligne de message.
String Function TexteMessage (handle hMessage)
Var
	string sTexte
Let sTexte = GetWindowName (hMessage)
If sTexte == "" Then
	Let sTexte = GetWindowText (hMessage, FALSE)
EndIf
Return sTexte
EndFunction

; Le nom du controle qui a le focus a change : c'est un message. Il est dit une fois, du type de sortie
; que l'utilisateur peut faire taire dans les reglages du lecteur. Les autres noms suivent ses regles.
Void Function NameChangedEvent (handle hWnd, int nObjet, int nEnfant, int nType, string sAncien, string sNouveau)
If hWnd == GetFocus () && FenetreMessage () Then
	If !gMessagesMuets Then
		Say (sNouveau, OT_SCREEN_MESSAGE)
	EndIf
	Return
EndIf
NameChangedEvent (hWnd, nObjet, nEnfant, nType, sAncien, sNouveau)
EndFunction

; La ligne de message a ete ecrite : le message est dit par le nom, pas une seconde fois ici.
Void Function SayNonHighlightedText (handle hWnd, string sTexte)
If hWnd == FenetreMessage () Then
	Return
EndIf
SayNonHighlightedText (hWnd, sTexte)
EndFunction

; Redit le dernier message.
Script RediMessage ()
Var
	handle hMessage
Let hMessage = FenetreMessage ()
If hMessage Then
	Say (TexteMessage (hMessage), OT_USER_REQUESTED_INFORMATION)
Else
	Say (msgPasDeMessage, OT_ERROR)
EndIf
EndScript

; Fait taire les messages, ou leur rend la parole.
Script BasculeMessages ()
If gMessagesMuets Then
	Let gMessagesMuets = FALSE
	Say (msgMessagesDits, OT_USER_REQUESTED_INFORMATION)
Else
	Let gMessagesMuets = TRUE
	Say (msgMessagesMuets, OT_USER_REQUESTED_INFORMATION)
EndIf
IniWriteInteger (SECTION_CHOIX, CLE_MUETS, gMessagesMuets, FICHIER_CHOIX)
EndScript
