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

; The LISP application has loaded: it stops the splash, which already gave
; way to the usage question at the start.
(kvt1_splash 3 "x")

; The controls of the dialogs in the emulator's own gallery, each drawn as the
; user leaves it: the menu bar's "File" menu, the note's context menu, the
; surface tabs scrolled by their buttons, a length beyond its limit brought
; back to it, the limits beside the focused slope field, and the tooltip of
; the length field.
@click-selector #menuBar > menu > li
@snapshot gallery-menu-bar
@click-selector #menuBar > menu > li > menu > li
@right-click divNote
@snapshot gallery-context-menu
@click-selector menu.context li
@click-selector #tabSurfaces [type='Next']
@click-selector #tabSurfaces [type='Next']
@click-selector #tabSurfaces [type='Next']
@snapshot gallery-tabs-scrolled
@click edtLength
@type 5000
@key RETURN
@click edtSlope
@snapshot gallery-limits
@hover edtLength
@wait 700
@snapshot gallery-tooltip
@click btnClose
GALLERY
