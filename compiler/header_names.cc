#include "compiler/header_names.h"

namespace vantiro {
namespace compiler {

const char kMacros[] = R"(
ADJ_ESTERROR ADJ_FREQUENCY ADJ_MAXERROR ADJ_MICRO ADJ_NANO ADJ_OFFSET
ADJ_OFFSET_SINGLESHOT ADJ_OFFSET_SS_READ ADJ_SETOFFSET ADJ_STATUS ADJ_TAI
ADJ_TICK ADJ_TIMECONST AIO_PRIO_DELTA_MAX ATOMIC_BOOL_LOCK_FREE
ATOMIC_CHAR16_T_LOCK_FREE ATOMIC_CHAR32_T_LOCK_FREE ATOMIC_CHAR8_T_LOCK_FREE
ATOMIC_CHAR_LOCK_FREE ATOMIC_FLAG_INIT ATOMIC_INT_LOCK_FREE
ATOMIC_LLONG_LOCK_FREE ATOMIC_LONG_LOCK_FREE ATOMIC_POINTER_LOCK_FREE
ATOMIC_SHORT_LOCK_FREE ATOMIC_VAR_INIT() ATOMIC_WCHAR_T_LOCK_FREE BC_BASE_MAX
BC_DIM_MAX BC_SCALE_MAX BC_STRING_MAX BIG_ENDIAN BOOL_MAX BOOL_WIDTH BUFSIZ
BYTE_ORDER CHARCLASS_NAME_MAX CHAR_BIT CHAR_MAX CHAR_MIN CHAR_WIDTH
CLOCKS_PER_SEC CLOCK_BOOTTIME CLOCK_BOOTTIME_ALARM CLOCK_MONOTONIC
CLOCK_MONOTONIC_COARSE CLOCK_MONOTONIC_RAW CLOCK_PROCESS_CPUTIME_ID
CLOCK_REALTIME CLOCK_REALTIME_ALARM CLOCK_REALTIME_COARSE CLOCK_TAI
CLOCK_THREAD_CPUTIME_ID CLONE_CHILD_CLEARTID CLONE_CHILD_SETTID CLONE_DETACHED
CLONE_FILES CLONE_FS CLONE_IO CLONE_NEWCGROUP CLONE_NEWIPC CLONE_NEWNET
CLONE_NEWNS CLONE_NEWPID CLONE_NEWTIME CLONE_NEWUSER CLONE_NEWUTS CLONE_PARENT
CLONE_PARENT_SETTID CLONE_PIDFD CLONE_PTRACE CLONE_SETTLS CLONE_SIGHAND
CLONE_SYSVSEM CLONE_THREAD CLONE_UNTRACED CLONE_VFORK CLONE_VM
CLOSE_RANGE_CLOEXEC CLOSE_RANGE_UNSHARE COLL_WEIGHTS_MAX CPU_ALLOC()
CPU_ALLOC_SIZE() CPU_AND() CPU_AND_S() CPU_CLR() CPU_CLR_S() CPU_COUNT()
CPU_COUNT_S() CPU_EQUAL() CPU_EQUAL_S() CPU_FREE() CPU_ISSET() CPU_ISSET_S()
CPU_OR() CPU_OR_S() CPU_SET() CPU_SETSIZE CPU_SET_S() CPU_XOR() CPU_XOR_S()
CPU_ZERO() CPU_ZERO_S() CSIGNAL DELAYTIMER_MAX E2BIG EACCES EADDRINUSE
EADDRNOTAVAIL EADV EAFNOSUPPORT EAGAIN EALREADY EBADE EBADF EBADFD EBADMSG EBADR
EBADRQC EBADSLT EBFONT EBUSY ECANCELED ECHILD ECHRNG ECOMM ECONNABORTED
ECONNREFUSED ECONNRESET EDEADLK EDEADLOCK EDESTADDRREQ EDOM EDOTDOT EDQUOT
EEXIST EFAULT EFBIG EHOSTDOWN EHOSTUNREACH EHWPOISON EIDRM EILSEQ EINPROGRESS
EINTR EINVAL EIO EISCONN EISDIR EISNAM EKEYEXPIRED EKEYREJECTED EKEYREVOKED
EL2HLT EL2NSYNC EL3HLT EL3RST ELIBACC ELIBBAD ELIBEXEC ELIBMAX ELIBSCN ELNRNG
ELOOP EMEDIUMTYPE EMFILE EMLINK EMSGSIZE EMULTIHOP ENAMETOOLONG ENAVAIL ENETDOWN
ENETRESET ENETUNREACH ENFILE ENOANO ENOBUFS ENOCSI ENODATA ENODEV ENOENT ENOEXEC
ENOKEY ENOLCK ENOLINK ENOMEDIUM ENOMEM ENOMSG ENONET ENOPKG ENOPROTOOPT ENOSPC
ENOSR ENOSTR ENOSYS ENOTBLK ENOTCONN ENOTDIR ENOTEMPTY ENOTNAM ENOTRECOVERABLE
ENOTSOCK ENOTSUP ENOTTY ENOTUNIQ ENXIO EOF EOPNOTSUPP EOVERFLOW EOWNERDEAD EPERM
EPFNOSUPPORT EPIPE EPROTO EPROTONOSUPPORT EPROTOTYPE ERANGE EREMCHG EREMOTE
EREMOTEIO ERESTART ERFKILL EROFS ESHUTDOWN ESOCKTNOSUPPORT ESPIPE ESRCH ESRMNT
ESTALE ESTRPIPE ETIME ETIMEDOUT ETOOMANYREFS ETXTBSY EUCLEAN EUNATCH EUSERS
EWOULDBLOCK EXDEV EXFULL EXIT_FAILURE EXIT_SUCCESS EXPR_NEST_MAX FD_CLR()
FD_ISSET() FD_SET() FD_SETSIZE FD_ZERO() FILENAME_MAX FOPEN_MAX F_LOCK F_OK
F_TEST F_TLOCK F_ULOCK GOOGLE_ARRAYSIZE() GOOGLE_CHECK() GOOGLE_CHECK_EQ()
GOOGLE_CHECK_GE() GOOGLE_CHECK_GT() GOOGLE_CHECK_LE() GOOGLE_CHECK_LT()
GOOGLE_CHECK_NE() GOOGLE_CHECK_NOTNULL() GOOGLE_CHECK_OK() GOOGLE_DCHECK
GOOGLE_DCHECK_EQ GOOGLE_DCHECK_GE GOOGLE_DCHECK_GT GOOGLE_DCHECK_LE
GOOGLE_DCHECK_LT GOOGLE_DCHECK_NE GOOGLE_DCHECK_OK
GOOGLE_DISALLOW_EVIL_CONSTRUCTORS() GOOGLE_DISALLOW_IMPLICIT_CONSTRUCTORS()
GOOGLE_DLOG GOOGLE_LOG() GOOGLE_LOG_IF() GOOGLE_PROTOBUF_* HOST_NAME_MAX
INT16_C() INT16_MAX INT16_MIN INT16_WIDTH INT32_C() INT32_MAX INT32_MIN
INT32_WIDTH INT64_C() INT64_MAX INT64_MIN INT64_WIDTH INT8_C() INT8_MAX INT8_MIN
INT8_WIDTH INTMAX_C() INTMAX_MAX INTMAX_MIN INTMAX_WIDTH INTPTR_MAX INTPTR_MIN
INTPTR_WIDTH INT_FAST16_MAX INT_FAST16_MIN INT_FAST16_WIDTH INT_FAST32_MAX
INT_FAST32_MIN INT_FAST32_WIDTH INT_FAST64_MAX INT_FAST64_MIN INT_FAST64_WIDTH
INT_FAST8_MAX INT_FAST8_MIN INT_FAST8_WIDTH INT_LEAST16_MAX INT_LEAST16_MIN
INT_LEAST16_WIDTH INT_LEAST32_MAX INT_LEAST32_MIN INT_LEAST32_WIDTH
INT_LEAST64_MAX INT_LEAST64_MIN INT_LEAST64_WIDTH INT_LEAST8_MAX INT_LEAST8_MIN
INT_LEAST8_WIDTH INT_MAX INT_MIN INT_WIDTH IOV_MAX LANG_CXX11 LC_ADDRESS
LC_ADDRESS_MASK LC_ALL LC_ALL_MASK LC_COLLATE LC_COLLATE_MASK LC_CTYPE
LC_CTYPE_MASK LC_GLOBAL_LOCALE LC_IDENTIFICATION LC_IDENTIFICATION_MASK
LC_MEASUREMENT LC_MEASUREMENT_MASK LC_MESSAGES LC_MESSAGES_MASK LC_MONETARY
LC_MONETARY_MASK LC_NAME LC_NAME_MASK LC_NUMERIC LC_NUMERIC_MASK LC_PAPER
LC_PAPER_MASK LC_TELEPHONE LC_TELEPHONE_MASK LC_TIME LC_TIME_MASK
LIBPROTOBUF_EXPORT LIBPROTOC_EXPORT LINE_MAX LITTLE_ENDIAN LLONG_MAX LLONG_MIN
LLONG_WIDTH LOGIN_NAME_MAX LONG_BIT LONG_LONG_MAX LONG_LONG_MIN LONG_MAX
LONG_MIN LONG_WIDTH L_INCR L_SET L_XTND L_ctermid L_cuserid L_tmpnam MAX_CANON
MAX_INPUT MB_CUR_MAX MB_LEN_MAX MOD_CLKA MOD_CLKB MOD_ESTERROR MOD_FREQUENCY
MOD_MAXERROR MOD_MICRO MOD_NANO MOD_OFFSET MOD_STATUS MOD_TAI MOD_TIMECONST
MQ_PRIO_MAX NAME_MAX NFDBITS NGROUPS_MAX NL_ARGMAX NL_LANGMAX NL_MSGMAX NL_NMAX
NL_SETMAX NL_TEXTMAX NULL NZERO PATH_MAX PDP_ENDIAN PIPE_BUF
PROTOBUF_RUNTIME_DEPRECATED() PROTOBUF_USE_EXCEPTIONS PTHREAD_* PTRDIFF_MAX
PTRDIFF_MIN PTRDIFF_WIDTH P_tmpdir RAND_MAX RENAME_EXCHANGE RENAME_NOREPLACE
RENAME_WHITEOUT RE_DUP_MAX RTSIG_MAX R_OK SCHAR_MAX SCHAR_MIN SCHAR_WIDTH
SCHED_BATCH SCHED_DEADLINE SCHED_FIFO SCHED_IDLE SCHED_ISO SCHED_OTHER
SCHED_RESET_ON_FORK SCHED_RR SEEK_CUR SEEK_DATA SEEK_END SEEK_HOLE SEEK_SET
SEM_VALUE_MAX SHRT_MAX SHRT_MIN SHRT_WIDTH SIG_ATOMIC_MAX SIG_ATOMIC_MIN
SIG_ATOMIC_WIDTH SIZE_MAX SIZE_WIDTH SSIZE_MAX STA_CLK STA_CLOCKERR STA_DEL
STA_FLL STA_FREQHOLD STA_INS STA_MODE STA_NANO STA_PLL STA_PPSERROR STA_PPSFREQ
STA_PPSJITTER STA_PPSSIGNAL STA_PPSTIME STA_PPSWANDER STA_RONLY STA_UNSYNC
STDERR_FILENO STDIN_FILENO STDOUT_FILENO SYS_* TEMP_FAILURE_RETRY()
TIMER_ABSTIME TIME_UTC TMP_MAX TTY_NAME_MAX UCHAR_MAX UCHAR_WIDTH UINT16_C()
UINT16_MAX UINT16_WIDTH UINT32_C() UINT32_MAX UINT32_WIDTH UINT64_C() UINT64_MAX
UINT64_WIDTH UINT8_C() UINT8_MAX UINT8_WIDTH UINTMAX_C() UINTMAX_MAX
UINTMAX_WIDTH UINTPTR_MAX UINTPTR_WIDTH UINT_FAST16_MAX UINT_FAST16_WIDTH
UINT_FAST32_MAX UINT_FAST32_WIDTH UINT_FAST64_MAX UINT_FAST64_WIDTH
UINT_FAST8_MAX UINT_FAST8_WIDTH UINT_LEAST16_MAX UINT_LEAST16_WIDTH
UINT_LEAST32_MAX UINT_LEAST32_WIDTH UINT_LEAST64_MAX UINT_LEAST64_WIDTH
UINT_LEAST8_MAX UINT_LEAST8_WIDTH UINT_MAX UINT_WIDTH ULLONG_MAX ULLONG_WIDTH
ULONG_LONG_MAX ULONG_MAX ULONG_WIDTH USHRT_MAX USHRT_WIDTH VANTIRO_LIB_*
VANTIRO_PROTOS_* WCHAR_MAX WCHAR_MIN WCHAR_WIDTH WCONTINUED WEOF WEXITED
WEXITSTATUS() WIFCONTINUED() WIFEXITED() WIFSIGNALED() WIFSTOPPED() WINT_MAX
WINT_MIN WINT_WIDTH WNOHANG WNOWAIT WORD_BIT WSTOPPED WSTOPSIG() WTERMSIG()
WUNTRACED W_OK XATTR_LIST_MAX XATTR_NAME_MAX XATTR_SIZE_MAX X_OK alloca()
assert() assert_perror() be16toh() be32toh() be64toh() bswap_16() bswap_32()
bswap_64() errno htobe16() htobe32() htobe64() htole16() htole32() htole64()
le16toh() le32toh() le64toh() linux offsetof() pthread_cleanup_* strdupa()
strndupa() unix va_arg() va_copy() va_end() va_start()
)";

const char kGlobalNames[] = R"(
FILE _exit _pthread_cleanup_buffer _tolower _toupper a64l abort abs access acct
acos acosf acosh acoshf acoshl acosl alarm aligned_alloc alloca arc4random
arc4random_buf arc4random_uniform asctime asctime_r asin asinf asinh asinhf
asinhl asinl asprintf at_quick_exit atan atan2 atan2f atan2l atanf atanh atanhf
atanhl atanl atexit atof atoi atol atoll basename bcmp bcopy blkcnt64_t blkcnt_t
blksize_t brk bsearch btowc bzero cabs cabsf cabsl cacos cacosf cacosh cacoshf
cacoshl cacosl caddr_t calloc canonicalize_file_name carg cargf cargl casin
casinf casinh casinhf casinhl casinl catan catanf catanh catanhf catanhl catanl
cbrt cbrtf cbrtl ccos ccosf ccosh ccoshf ccoshl ccosl ceil ceilf ceill cexp
cexpf cexpl chdir chown chroot cimag cimagf cimagl clearenv clearerr
clearerr_unlocked clock clock_adjtime clock_getcpuclockid clock_getres
clock_gettime clock_nanosleep clock_settime clock_t clockid_t clog clog10
clog10f clog10l clogf clogl clone close close_range closefrom comparison_fn_t
confstr conj conjf conjl cookie_close_function_t cookie_io_functions_t
cookie_read_function_t cookie_seek_function_t cookie_write_function_t
copy_file_range copysign copysignf copysignl cos cosf cosh coshf coshl cosl cpow
cpowf cpowl cproj cprojf cprojl cpu_set_t creal crealf creall crypt csin csinf
csinh csinhf csinhl csinl csqrt csqrtf csqrtl ctan ctanf ctanh ctanhf ctanhl
ctanl ctermid ctime ctime_r cuserid daddr_t daemon daylight dcgettext dev_t
dgettext difftime div div_t dprintf drand48 drand48_data drand48_r drem dremf
dreml dup dup2 dup3 duplocale dysize eaccess ecvt ecvt_r endusershell environ
erand48 erand48_r erf erfc erfcf erfcl erff erfl error_t euidaccess execl execle
execlp execv execve execveat execvp execvpe exit exp exp10 exp10f exp10l exp2
exp2f exp2l expf expl explicit_bzero expm1 expm1f expm1l fabs fabsf fabsl
faccessat fchdir fchown fchownat fclose fcloseall fcvt fcvt_r fd_mask fd_set
fdatasync fdim fdimf fdiml fdopen feclearexcept fegetenv fegetexceptflag
fegetround feholdexcept feof feof_unlocked feraiseexcept ferror ferror_unlocked
fesetenv fesetexceptflag fesetround fetestexcept feupdateenv fexecve fflush
fflush_unlocked ffs ffsl ffsll fgetc fgetc_unlocked fgetpos fgetpos64 fgets
fgets_unlocked fgetwc fgetwc_unlocked fgetws fgetws_unlocked fileno
fileno_unlocked finite finitef finitel flockfile floor floorf floorl fma fmaf
fmal fmax fmaxf fmaxl fmemopen fmin fminf fminl fmod fmodf fmodl fopen fopen64
fopencookie fork fpathconf fpos64_t fpos_t fprintf fputc fputc_unlocked fputs
fputs_unlocked fputwc fputwc_unlocked fputws fputws_unlocked fread
fread_unlocked free freelocale freopen freopen64 frexp frexpf frexpl
fsblkcnt64_t fsblkcnt_t fscanf fseek fseeko fseeko64 fsetpos fsetpos64
fsfilcnt64_t fsfilcnt_t fsid_t fsync ftell ftello ftello64 ftruncate ftruncate64
ftrylockfile funlockfile fwide fwprintf fwrite fwrite_unlocked fwscanf gamma
gammaf gammal gcvt get_current_dir_name getc getc_unlocked getchar
getchar_unlocked getcpu getcwd getdate getdate_err getdate_r getdelim
getdomainname getdtablesize getegid getentropy getenv geteuid getgid getgroups
gethostid gethostname getline getloadavg getlogin getlogin_r getopt getpagesize
getpass getpgid getpgrp getpid getppid getpt getresgid getresuid getsid
getsubopt gettext gettid getuid getusershell getw getwc getwc_unlocked getwchar
getwchar_unlocked getwd gid_t gmtime gmtime_r grantpt group_member hypot hypotf
hypotl id_t ilogb ilogbf ilogbl imaxabs index initstate initstate_r ino64_t
ino_t int16_t int32_t int64_t int8_t int_fast16_t int_fast32_t int_fast64_t
int_fast8_t int_least16_t int_least32_t int_least64_t int_least8_t intmax_t
intptr_t isalnum isalnum_l isalpha isalpha_l isascii isatty isblank isblank_l
iscntrl iscntrl_l isctype isdigit isdigit_l isgraph isgraph_l isinf isinff
isinfl islower islower_l isnan isnanf isnanl isprint isprint_l ispunct ispunct_l
isspace isspace_l isupper isupper_l iswalnum iswalnum_l iswalpha iswalpha_l
iswblank iswblank_l iswcntrl iswcntrl_l iswctype iswctype_l iswdigit iswdigit_l
iswgraph iswgraph_l iswlower iswlower_l iswprint iswprint_l iswpunct iswpunct_l
iswspace iswspace_l iswupper iswupper_l iswxdigit iswxdigit_l isxdigit
isxdigit_l itimerspec j0 j0f j0l j1 j1f j1l jn jnf jnl jrand48 jrand48_r key_t
l64a labs lchown lcong48 lcong48_r lconv ldexp ldexpf ldexpl ldiv ldiv_t lgamma
lgamma_r lgammaf lgammaf_r lgammal lgammal_r link linkat llabs lldiv lldiv_t
llrint llrintf llrintl llround llroundf llroundl locale_t localeconv localtime
localtime_r lockf lockf64 loff_t log log10 log10f log10l log1p log1pf log1pl
log2 log2f log2l logb logbf logbl logf logl lrand48 lrand48_r lrint lrintf
lrintl lround lroundf lroundl lseek lseek64 malloc max_align_t mblen mbrlen
mbrtowc mbsinit mbsnrtowcs mbsrtowcs mbstate_t mbstowcs mbtowc memccpy memchr
memcmp memcpy memfrob memmem memmove mempcpy memrchr memset mkdtemp mkostemp
mkostemp64 mkostemps mkostemps64 mkstemp mkstemp64 mkstemps mkstemps64 mktemp
mktime mode_t modf modff modfl mrand48 mrand48_r nan nanf nanl nanosleep
nearbyint nearbyintf nearbyintl newlocale nextafter nextafterf nextafterl
nexttoward nexttowardf nexttowardl nice nlink_t nrand48 nrand48_r nullptr_t
obstack obstack_printf obstack_vprintf off64_t off_t on_exit open_memstream
open_wmemstream optarg opterr optind optopt pathconf pause pclose perror pid_t
pipe pipe2 popen posix_memalign posix_openpt pow pow10 pow10f pow10l powf powl
pread pread64 printf profil program_invocation_name
program_invocation_short_name pselect pthread_* ptrdiff_t ptsname ptsname_r putc
putc_unlocked putchar putchar_unlocked putenv puts putw putwc putwc_unlocked
putwchar putwchar_unlocked pwrite pwrite64 qecvt qecvt_r qfcvt qfcvt_r qgcvt
qsort qsort_r quad_t quick_exit rand rand_r random random_data random_r
rawmemchr read readlink readlinkat realloc reallocarray realpath register_t
remainder remainderf remainderl remove remquo remquof remquol rename renameat
renameat2 revoke rewind rindex rint rintf rintl rmdir round roundeven roundevenf
roundevenl roundf roundl rpmatch rsize_t sbrk scalb scalbf scalbl scalbln
scalblnf scalblnl scalbn scalbnf scalbnl scanf sched_get_priority_max
sched_get_priority_min sched_getaffinity sched_getcpu sched_getparam
sched_getscheduler sched_param sched_rr_get_interval sched_setaffinity
sched_setparam sched_setscheduler sched_yield secure_getenv seed48 seed48_r
select setbuf setbuffer setdomainname setegid setenv seteuid setgid sethostid
sethostname setlinebuf setlocale setlogin setns setpgid setpgrp setregid
setresgid setresuid setreuid setsid setstate setstate_r setuid setusershell
setvbuf sigabbrev_np sigdescr_np sigevent significand significandf significandl
sigset_t sin sincos sincosf sincosl sinf sinh sinhf sinhl sinl size_t sleep
snprintf socklen_t sprintf sqrt sqrtf sqrtl srand srand48 srand48_r srandom
srandom_r sscanf ssize_t stderr stdin stdout stpcpy stpncpy strcasecmp
strcasecmp_l strcasestr strcat strchr strchrnul strcmp strcoll strcoll_l strcpy
strcspn strdup strerror strerror_l strerror_r strerrordesc_np strerrorname_np
strfmon strfromd strfromf strfromf128 strfromf32 strfromf32x strfromf64
strfromf64x strfroml strfry strftime strftime_l strlen strncasecmp strncasecmp_l
strncat strncmp strncpy strndup strnlen strpbrk strptime strptime_l strrchr
strsep strsignal strspn strstr strtod strtod_l strtof strtof128 strtof128_l
strtof32 strtof32_l strtof32x strtof32x_l strtof64 strtof64_l strtof64x
strtof64x_l strtof_l strtok strtok_r strtol strtol_l strtold strtold_l strtoll
strtoll_l strtoq strtoul strtoul_l strtoull strtoull_l strtouq strverscmp
strxfrm strxfrm_l suseconds_t swab swprintf swscanf symlink symlinkat sync
syncfs syscall sysconf system tan tanf tanh tanhf tanhl tanl tcgetpgrp tcsetpgrp
tempnam tgamma tgammaf tgammal time time_t timegm timelocal timer_create
timer_delete timer_getoverrun timer_gettime timer_settime timer_t timespec
timespec_get timespec_getres timeval timex timezone tm tmpfile tmpfile64 tmpnam
tmpnam_r toascii tolower tolower_l toupper toupper_l towctrans towctrans_l
towlower towlower_l towupper towupper_l trunc truncate truncate64 truncf truncl
ttyname ttyname_r ttyslot tzname tzset u_char u_int u_int16_t u_int32_t
u_int64_t u_int8_t u_long u_quad_t u_short ualarm uid_t uint uint16_t uint32_t
uint64_t uint8_t uint_fast16_t uint_fast32_t uint_fast64_t uint_fast8_t
uint_least16_t uint_least32_t uint_least64_t uint_least8_t uintmax_t uintptr_t
ulong ungetc ungetwc unlink unlinkat unlockpt unsetenv unshare useconds_t
uselocale ushort usleep va_list valloc vasprintf vdprintf vfork vfprintf vfscanf
vfwprintf vfwscanf vhangup vprintf vscanf vsnprintf vsprintf vsscanf vswprintf
vswscanf vwprintf vwscanf wcpcpy wcpncpy wcrtomb wcscasecmp wcscasecmp_l wcscat
wcschr wcschrnul wcscmp wcscoll wcscoll_l wcscpy wcscspn wcsdup wcsftime
wcsftime_l wcslen wcsncasecmp wcsncasecmp_l wcsncat wcsncmp wcsncpy wcsnlen
wcsnrtombs wcspbrk wcsrchr wcsrtombs wcsspn wcsstr wcstod wcstod_l wcstof
wcstof128 wcstof128_l wcstof32 wcstof32_l wcstof32x wcstof32x_l wcstof64
wcstof64_l wcstof64x wcstof64x_l wcstof_l wcstok wcstol wcstol_l wcstold
wcstold_l wcstoll wcstoll_l wcstombs wcstoq wcstoul wcstoul_l wcstoull
wcstoull_l wcstouq wcswcs wcswidth wcsxfrm wcsxfrm_l wctob wctomb wctrans
wctrans_l wctrans_t wctype wctype_l wctype_t wcwidth wint_t wmemchr wmemcmp
wmemcpy wmemmove wmempcpy wmemset wprintf write wscanf y0 y0f y0l y1 y1f y1l yn
ynf ynl
)";

}  // namespace compiler
}  // namespace vantiro
