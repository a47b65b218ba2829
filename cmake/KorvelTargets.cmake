# How a folder of src/korvel becomes a target, how folders become a library, and how a test links what it tests.

# korvel_folder(NAME USES folder... LINKS library... PUBLIC header...)
#
# One object library korvel_NAME from src/korvel/NAME. USES lists the folders whose objects a program that
# holds this folder needs as well; it is followed to its end. PUBLIC lists the headers that hosts include.
function(korvel_folder name)
  cmake_parse_arguments(arg "" "" "USES;LINKS;PUBLIC" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/korvel/${name}/*.cpp
                                              ${CMAKE_CURRENT_SOURCE_DIR}/korvel/${name}/*.h)
  add_library(korvel_${name} OBJECT ${sources})
  target_include_directories(korvel_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(korvel_${name} PRIVATE korvel_flags PUBLIC ${arg_LINKS})
  list(TRANSFORM arg_PUBLIC PREPEND korvel/${name}/)
  set_property(GLOBAL PROPERTY KORVEL_USES_${name} "${arg_USES}")
  set_property(GLOBAL PROPERTY KORVEL_PUBLIC_${name} "${arg_PUBLIC}")
endfunction()

# All folders that the given ones need, themselves included.
function(korvel_closure out)
  set(open ${ARGN})
  set(closed "")
  while(open)
    list(POP_FRONT open name)
    if(NOT name IN_LIST closed)
      list(APPEND closed ${name})
      get_property(uses GLOBAL PROPERTY KORVEL_USES_${name})
      list(APPEND open ${uses})
    endif()
  endwhile()
  set(${out} ${closed} PARENT_SCOPE)
endfunction()

# Links a program with the objects of the given folders and of all that these need.
function(korvel_link_folders target)
  korvel_closure(folders ${ARGN})
  foreach(folder IN LISTS folders)
    target_link_libraries(${target} PRIVATE korvel_${folder})
  endforeach()
  target_link_libraries(${target} PRIVATE korvel_flags)
endfunction()

# korvel_library(TARGET NAME folder...)
#
# The shared library TARGET that hosts link as KorvelCommonDialogs::NAME: the given folders with their public
# headers. Below version 1.0 each minor version may break hosts, so it stands in the soname.
function(korvel_library target name)
  add_library(${target} SHARED)
  add_library(KorvelCommonDialogs::${name} ALIAS ${target})
  set(soversion ${PROJECT_VERSION_MAJOR})
  if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  endif()
  set_target_properties(${target} PROPERTIES
    LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${soversion}
    EXPORT_NAME ${name} INSTALL_RPATH "$ORIGIN" VERIFY_INTERFACE_HEADER_SETS ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PRIVATE korvel_flags)
  if(NOT KORVEL_SANITIZE)
    # What one library needs of the other has to be exported there; a sanitizer's functions come with the program.
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()

  set(headers "")
  foreach(folder IN LISTS ARGN)
    target_link_libraries(${target} PRIVATE korvel_${folder})
    get_property(public GLOBAL PROPERTY KORVEL_PUBLIC_${folder})
    list(APPEND headers ${public})
  endforeach()
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${headers})
  set_property(GLOBAL APPEND PROPERTY KORVEL_PUBLIC_HEADERS ${headers})
endfunction()

# korvel_language_module(TARGET CODE source...)
#
# The shared object with the translated templates of a library, which the library looks for beside itself.
function(korvel_language_module library code)
  add_library(${library}${code} MODULE ${ARGN})
  set_target_properties(${library}${code} PROPERTIES
    PREFIX ${CMAKE_SHARED_LIBRARY_PREFIX} SUFFIX .rll LIBRARY_OUTPUT_DIRECTORY $<TARGET_FILE_DIR:${library}>)
  target_include_directories(${library}${code} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${library}${code} PRIVATE korvel_flags)
  add_dependencies(${library} ${library}${code})
endfunction()

# Hands what the build was told of its maker to the one source that holds it. In a text, \n stands for a line break.
function(korvel_maker_texts source)
  foreach(name KORVEL_RIGHTS_LINE KORVEL_WEB_ADDRESS KORVEL_MAIL_ADDRESS)
    string(REPLACE "\"" "\\\"" text "${${name}}")
    string(REPLACE ";" "\\073" text "${text}") # a list of definitions ends at a semicolon
    set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS "${name}=\"${text}\"")
  endforeach()
endfunction()
