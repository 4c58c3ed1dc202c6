/* The four faces that cut-fonts made, found through the include path. */

    .macro face name, file
    .balign 16
    .globl \name
    .hidden \name
    .type \name, %object
\name:
    .incbin "\file"
    .size \name, . - \name
    .globl \name\()End
    .hidden \name\()End
\name\()End:
    .byte 0
    .endm

    .section .rodata.pedlSans, "a", %progbits
    face pedlSansRegular, "sans-regular.ttf"
    face pedlSansBold, "sans-bold.ttf"
    face pedlSansItalic, "sans-italic.ttf"
    face pedlSansBoldItalic, "sans-bolditalic.ttf"

    .section .note.GNU-stack, "", %progbits
