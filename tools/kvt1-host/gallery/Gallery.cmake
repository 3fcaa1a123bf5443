# The controls gallery's page with the shared pages, as resource triples for
# kvt1_add_resources: every program that links the emulator carries them.
set(KVT1_GALLERY_RESOURCES ${KVT1_PAGE_RESOURCES}
  23 HTM_DLG_CONTROLS_GALLERY ${CMAKE_CURRENT_LIST_DIR}/HTM_DLG_CONTROLS_GALLERY.html
)
