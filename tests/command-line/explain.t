The environment component tells the code that Tallowby's key states:

  $ cp "$programs/Environment.dll" "$WINEPREFIX/drive_c/Program Files/Tessaly/Tallowby/"
  $ wine regedit /S "$repository/samples/environment/environment.reg"

What `explain` tells of a user of class Oak, by the code, the account type, what is allocated to the class, what the user
chose, and what is allocated to the user and the group:

  $ reg add "$schemes\Half\WebLinks" /v WebLinksCount /t REG_DWORD /d 1
  $ explain() {
  >   registry <<EOF
  > [HKLM\Software\Tessaly\Tallowby]
  > "Environment Code"=dword:$1
  > [HKLM\Software\Tessaly\Tallowby\Accounts\amelia]
  > "Account Type"="$2"
  > [HKLM\Software\Tessaly\Crateling\Benchspace]
  > "Current Mode"="$2"
  > [$product\Class Schemes]
  > "Oak"="$3"
  > [HKCU\Software\Tessaly\Kelvanstead]
  > "ConfigToUse"="$4"
  > [$product\User Schemes]
  > "amelia"="$5"
  > [$product\User Group Schemes]
  > "$2"="$6"
  > EOF
  >   ksm explain | tr -s " " | grep -vE "^(User|Tried|$)"
  > }

The class counts for pupils only, however their type is spelled, and comes before user and group:

  $ explain 3 Pupils Infants "" Juniors Staff
  Environment 3: Crateling knows the classes and users
  Account type Pupils
  Class Oak
  class Oak Infants loaded
  This user gets Infants
  $ explain 6 pupil Infants "" Juniors Staff
  Environment 6: Tallowby and Benchspace know the classes and users
  Account type pupil
  Class Oak
  class Oak Infants loaded
  This user gets Infants
  $ explain 3 Teachers Infants "" Juniors Staff
  Environment 3: Crateling knows the classes and users
  Account type Teachers
  Class
  user amelia Juniors loaded
  This user gets Juniors
  $ explain 6 Teachers Infants Juniors "" Staff
  Environment 6: Tallowby and Benchspace know the classes and users
  Account type Teachers
  Class
  user amelia no scheme
  group Teachers Staff loaded
  This user gets Staff
  $ explain 6 Pupils Away "" "" Staff
  Environment 6: Tallowby and Benchspace know the classes and users
  Account type Pupils
  Class Oak
  class Oak Away missing
  user amelia no scheme
  group Pupils Staff loaded
  This user gets Staff
  $ explain 6 Pupils Half "" "" 'a\\b'
  Environment 6: Tallowby and Benchspace know the classes and users
  Account type Pupils
  Class Oak
  class Oak Half incomplete
  user amelia no scheme
  group Pupils a\b missing
  default Default User loaded
  This user gets Default User

The user's own choice counts in the per-user environments only, which know no account types:

  $ explain 8 Pupils Infants Juniors Staff Staff
  Environment 8: the scheme is a setting of each user
  Account type
  Class
  own choice Juniors loaded
  This user gets Juniors
  $ explain 9 Pupils Infants Away Staff ""
  Environment 9: the scheme is a setting of each user
  Account type
  Class
  own choice Away missing
  user amelia Staff loaded
  This user gets Staff
  $ explain 63 Pupils Infants "" "" Staff
  Environment 99: the scheme is a setting of each user
  Account type
  Class
  own choice no scheme
  user amelia no scheme
  group no scheme
  default Default User loaded
  This user gets Default User

Without an environment the user's scheme is loaded, but the result is an error:

  $ explain 0 Pupils Infants Juniors Staff ""
  Environment 0: no environment
  Account type
  Class
  user amelia Staff loaded
  This user gets Error, which names no scheme: there is no environment
