# Installs into a folder, moves that folder, and asks the installed programs what they find.
# BUILD_TREE, SOURCE_TREE, VERSION; WORK_FOLDER is emptied first.
cmake_minimum_required(VERSION 3.16)

# run(<output> FROM <folder> [INPUT <file>] COMMAND <command>...): what the command writes; it must
# succeed.
function(run output)
    cmake_parse_arguments(ARG "" "FROM;INPUT" "COMMAND" ${ARGN})
    if(ARG_INPUT)
        set(input INPUT_FILE "${ARG_INPUT}")
    endif()
    execute_process(COMMAND ${ARG_COMMAND} WORKING_DIRECTORY "${ARG_FROM}" ${input}
                    OUTPUT_VARIABLE written ERROR_VARIABLE complaint RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARG_COMMAND}: ${result}\n${written}${complaint}")
    endif()
    set(${output} "${written}" PARENT_SCOPE)
endfunction()

function(expect_line report line)
    string(FIND "\n${report}" "\n${line}\n" place)
    if(place EQUAL -1)
        message(SEND_ERROR "Missing line:\n${line}\nin:\n${report}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK_FOLDER}")
set(elsewhere "${WORK_FOLDER}/elsewhere")
set(own "${WORK_FOLDER}/own tuning")
file(MAKE_DIRECTORY "${elsewhere}" "${own}")
run(ignored FROM "${elsewhere}"
    COMMAND ${CMAKE_COMMAND} --install "${BUILD_TREE}" --prefix "${WORK_FOLDER}/installed")

# A blank in the path is what an unpacked archive often has.
set(tree "${WORK_FOLDER}/moved tree")
file(RENAME "${WORK_FOLDER}/installed" "${tree}")
set(program_folder "${tree}/lib/tavro-cordex-sniffer")
set(starter "${tree}/bin/tavro-cordex-sniffer")

# The tuning file of the installation, from a folder without one and through a link to the starter.
file(CREATE_LINK "${starter}" "${elsewhere}/sniffer" SYMBOLIC)
foreach(command "${starter}" "${elsewhere}/sniffer")
    run(report FROM "${elsewhere}" COMMAND "${command}" --version)
    expect_line("${report}" "Tavro Cordex Sniffer ${VERSION}")
    expect_line("${report}" "Languages: English, Francais, Nederlands in ${program_folder}/translations")
    expect_line("${report}" "Tuning file: settings.ini in ${program_folder}")
    foreach(text GPL-2 GPL-3 LGPL-2.1 LGPL-3 Qt QtMultimedia QtSerialPort Qwt)
        if(NOT report MATCHES "\nLicenses: [^\n]*${text}\\.txt[^\n]* in [^\n]*/moved tree/")
            message(SEND_ERROR "The licence text ${text} is not found:\n${report}")
        endif()
    endforeach()
    if(NOT report MATCHES "\nManual: [^\n]*index\\.md[^\n]* in [^\n]*/moved tree/")
        message(SEND_ERROR "The manual is not found:\n${report}")
    endif()
endforeach()

# An engineer's own tuning file goes before.
file(COPY "${SOURCE_TREE}/settings.ini" DESTINATION "${own}")
run(report FROM "${own}" COMMAND "${starter}" --version)
expect_line("${report}" "Tuning file: settings.ini in ${own}")

# What is installed as a licence is a licence.
foreach(pair "Qwt=Qwt License" "LGPL-2.1=LESSER GENERAL PUBLIC LICENSE" "Qt=The Qt Company"
             "QtSerialPort=The Qt Company" "QtMultimedia=The Qt Company")
    string(REPLACE "=" ";" pair "${pair}")
    list(GET pair 0 name)
    list(GET pair 1 words)
    file(STRINGS "${program_folder}/licenses/${name}.txt" lines REGEX "${words}")
    if(NOT lines)
        message(SEND_ERROR "${name}.txt does not speak of \"${words}\"")
    endif()
endforeach()

# The menu entry starts what is in bin/ under an icon that is there in every size.
set(entry "${tree}/share/applications/tavro-cordex-sniffer.desktop")
file(STRINGS "${entry}" exec REGEX "^Exec=")
file(STRINGS "${entry}" icon REGEX "^Icon=")
string(REPLACE "Exec=" "${tree}/bin/" exec "${exec}")
string(REPLACE "Icon=" "" icon "${icon}")
if(NOT EXISTS "${exec}")
    message(SEND_ERROR "The menu entry starts ${exec}, which is not there")
endif()
file(GLOB drawn "${SOURCE_TREE}/resources/appicon/*.png")
file(GLOB installed "${tree}/share/icons/hicolor/*/apps/${icon}.png")
list(LENGTH drawn drawn)
list(LENGTH installed installed)
if(NOT installed EQUAL drawn)
    message(SEND_ERROR "${installed} of ${drawn} icons are installed as ${icon}")
endif()
find_program(validate desktop-file-validate)
if(validate)
    run(ignored FROM "${tree}" COMMAND "${validate}" "${entry}")
endif()

# The simulated installation runs on a scenario that is installed.
file(WRITE "${elsewhere}/commands" "list\nquit\n")
file(GLOB scenarios "${program_folder}/scenarios/*.json")
if(NOT scenarios)
    message(SEND_ERROR "No scenarios are installed")
endif()
run(list FROM "${elsewhere}" INPUT "${elsewhere}/commands"
    COMMAND "${tree}/bin/ldb-simulator" --unpaced --scenario
            "${program_folder}/scenarios/open-loop.json")
if(NOT list MATCHES "loop Open")
    message(SEND_ERROR "The simulated installation does not list its fault:\n${list}")
endif()

# The manual, pictures included, as it is in the sources.
file(GLOB_RECURSE pages RELATIVE "${SOURCE_TREE}/docs/manual" "${SOURCE_TREE}/docs/manual/*")
foreach(page IN LISTS pages)
    if(NOT EXISTS "${program_folder}/manual/${page}")
        message(SEND_ERROR "The manual's ${page} is not installed")
    endif()
endforeach()

file(REMOVE_RECURSE "${WORK_FOLDER}")
