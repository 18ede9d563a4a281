; Les mots que disent les scripts de Voxtab.

Messages
@msgPasDeMessage
pas de message
@@
@msgMessagesDits
messages de Voxtab dits
@@
@msgMessagesMuets
messages de Voxtab muets
@@
EndMessages
