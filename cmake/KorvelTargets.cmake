# How a folder of src/ becomes a target, and how a test program links what it tests.

# Lets a folder that holds only headers so far be a target.
set(KORVEL_EMPTY_SOURCE ${CMAKE_CURRENT_LIST_DIR}/empty.cpp)

# korvel_folder(NAME USES folder... LINKS library... PUBLIC header...)
#
# One object library korvel_NAME from src/korvel/NAME. USES lists the folders whose objects a program that
# holds this folder needs as well; it is followed to its end. PUBLIC lists the headers that hosts include.
function(korvel_folder name)
  cmake_parse_arguments(arg "" "" "USES;LINKS;PUBLIC" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/korvel/${name}/*.cpp
                                              ${CMAKE_CURRENT_SOURCE_DIR}/korvel/${name}/*.h)
  add_library(korvel_${name} OBJECT ${sources} ${KORVEL_EMPTY_SOURCE})
  set_target_properties(korvel_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(korvel_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(korvel_${name} PRIVATE korvel_flags PUBLIC ${arg_LINKS})
  target_compile_definitions(korvel_${name} PRIVATE KORVEL_BUILDING_LIBRARY)
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
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:korvel_${folder}>)
  endforeach()
  target_link_libraries(${target} PRIVATE korvel_flags)
endfunction()

# Hands what the build was told of its maker to the one source that holds it. In a text, \n stands for a line break.
function(korvel_maker_texts source)
  foreach(name KORVEL_RIGHTS_LINE KORVEL_WEB_ADDRESS KORVEL_MAIL_ADDRESS)
    string(REPLACE "\"" "\\\"" text "${${name}}")
    string(REPLACE ";" "\\073" text "${text}") # a list of definitions ends at a semicolon
    set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS "${name}=\"${text}\"")
  endforeach()
endfunction()
