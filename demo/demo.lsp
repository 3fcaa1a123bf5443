; A short session of the LISP application with the KVT1 module loaded.
; The host's support path was given on the command line with an entry of the
; earlier KVTools installation; the module removed it while it initialised.
(getenv "ACAD")

; The update check of the start asks the local update service on a worker
; thread while the host goes on; when the host idles, its notification opens.
IDLE

; Argument checks: a wrong count answers nil, a wrong type prints and answers (0).
(kvt1_help)
(kvt1_help 5)
(kvt1_info 1)
(kvt1_splash 2)
(kvt1_splash 2 7)
(kvt1_splash "x")
(kvt1_GetSettings 1)

; Help: a dialog's topic, the contents for an unknown dialog, and help
; attached to a LISP command.
(kvt1_help "AirportDialog")
(kvt1_help "NoSuchDialog")
(kvt1_setfunhelp "c:kv_surfaces" "kv_surfaces")

; The support page, a usage count and a setting.
(kvt1_support)
(kvt1_reporting "401")
(kvt1_GetSettings "##120")

; A check on request asks the service again, and waits for its answer.
(kvt1_SetSettings "##120" "2")

; The start command queues the LISP application once; a second run does nothing.
KVT1
KVT1

; A drawing opened now gets the start file queued and its own LISP functions;
; the about box shows there until its button closes it.
NEW
@click OK
(kvt1_info)
CLOSE

; The host starts again. The usage question (left unanswered at the first
; start) is answered this time: the user agrees to send usage reports. The
; update notification comes once the service has answered, while the host
; goes on; the host idles until then, and the notification is answered: its
; updates are dismissed, after a confirmation.
@click YES
@click btnOk
RELOAD
@click btnDismiss
@answer YES
IDLE

; The next start shows nothing; a check on request shows the updates again.
RELOAD
(kvt1_SetSettings "##120" "2")

; Switching the start-up check off is stored for the user.
(kvt1_SetSettings "##120" "0")
(kvt1_GetSettings "##120")
