; Every dialog of the module, for a person to look at. Run with
; kvt1-host --render DIR (scripts/gallery.sh): each dialog is drawn into DIR
; as it opens.
;
; The dialogs that the module opens while it starts (the splash, and the
; usage question until the user has answered it) were drawn first.

; The about box, closed with its button.
@click OK
(kvt1_info)

; The HTML message dialog: no help file is installed here, so asking for help
; tells the user so.
@answer OK
(kvt1_help "AirportDialog")

; The LISP application has loaded: the splash goes.
(kvt1_splash 3 "x")
