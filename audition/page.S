/* The page, found through the include path. */

    .section .rodata.pedlAuditionPage, "a", %progbits
    .globl pedlAuditionPage
    .hidden pedlAuditionPage
    .type pedlAuditionPage, %object
pedlAuditionPage:
    .incbin "page.html"
    .size pedlAuditionPage, . - pedlAuditionPage
    .globl pedlAuditionPageEnd
    .hidden pedlAuditionPageEnd
pedlAuditionPageEnd:
    .byte 0

    .section .note.GNU-stack, "", %progbits
