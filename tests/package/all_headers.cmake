# include_all_headers(PROGRAM SOURCE library...)
#
# Lets SOURCE of PROGRAM include "all_headers.h", which includes every header of the libraries, and compiles
# all inline functions there: whatever these call has to be exported.
function(include_all_headers program source)
  set(text "")
  foreach(library IN LISTS ARGN)
    get_target_property(headers ${library} HEADER_SET)
    foreach(header IN LISTS headers)
      string(APPEND text "#include \"${header}\"\n")
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/all_headers.h CONTENT "@text@" @ONLY)
  target_sources(${program} PRIVATE ${source})
  target_include_directories(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  set_source_files_properties(${source} PROPERTIES
    COMPILE_OPTIONS $<$<CXX_COMPILER_ID:GNU>:-fkeep-inline-functions>)
  # An inline function of GCC 12's own <filesystem> calls this one, which its library does not hold.
  target_link_options(${program} PRIVATE $<$<CXX_COMPILER_ID:GNU>:LINKER:--defsym=_ZNSt10filesystem7__cxx114path5_List4typeENS1_5_TypeE=0>)
endfunction()
