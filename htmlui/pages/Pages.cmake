# The module's HTML pages, style sheets and pictures, as resource triples
# (type, name, file) for kvt1_add_resources. Type 23 is RT_HTML.
set(_kvt1_pages ${CMAKE_CURRENT_LIST_DIR})
set(KVT1_PAGE_RESOURCES
  23 HTM_CTRL_COMMON ${_kvt1_pages}/HTM_CTRL_COMMON.css
  23 HTM_DLG_MESSAGE ${_kvt1_pages}/HTM_DLG_MESSAGE.html
)
