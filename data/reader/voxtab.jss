; Voxtab pour le lecteur d'ecran JAWS : dit la ligne de message quand elle change, et la redit sur une
; touche. A compiler avec le gestionnaire de scripts du lecteur, pour les versions qui n'annoncent pas
; d'elles-memes les regions actives ; lisezmoi.txt dit comment.
; Etat : gMessagesMuets, quand le lecteur annonce deja les messages de lui-meme.

Include "hjconst.jsh"

Const
	ID_LIGNE_MESSAGE = 1012

Globals
	int gMessagesMuets

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

; Un texte vient d'etre ecrit : celui de la ligne de message est dit en entier, une fois ; les autres
; suivent les regles du lecteur.
Void Function SayNonHighlightedText (handle hWnd, string buffer)
Var
	handle hMessage
Let hMessage = FenetreMessage ()
If hMessage && hWnd == hMessage Then
	If !gMessagesMuets Then
		Say (TexteMessage (hMessage), OT_USER_REQUESTED_INFORMATION)
	EndIf
	Return
EndIf
SayNonHighlightedText (hWnd, buffer)
EndFunction

; Redit le dernier message.
Script RediMessage ()
Var
	handle hMessage
Let hMessage = FenetreMessage ()
If hMessage Then
	Say (TexteMessage (hMessage), OT_USER_REQUESTED_INFORMATION)
Else
	Say ("pas de message", OT_ERROR)
EndIf
EndScript

; Fait taire ces scripts quand le lecteur dit deja chaque message, ou leur rend la parole.
Script BasculeMessages ()
If gMessagesMuets Then
	Let gMessagesMuets = FALSE
	Say ("messages par les scripts", OT_STATUS)
Else
	Let gMessagesMuets = TRUE
	Say ("messages par le lecteur seul", OT_STATUS)
EndIf
EndScript
